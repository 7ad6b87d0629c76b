#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kivemu {

/// The messages of one frame, a line each, at most MaxMessages of them.
class CErrorList
{
public:
    static constexpr size_t MaxMessages = 100;
    static constexpr size_t MaxLength = 4000; ///< bytes; longer ones are cut

    void clear();
    void add(std::string message);
    /// Adds "<subject>: <message>" unless the subject's last message was the same, perhaps without
    /// a position before it.
    void add(std::string_view subject, std::string_view message);

    bool isEmpty() const { return m_messages.empty(); }
    /// All lines, and how many were left out.
    std::string text() const;

private:
    std::vector<std::string> m_messages;
    size_t m_leftOut = 0;
};

} // namespace kivemu
