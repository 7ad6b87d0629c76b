#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace kivemu {

/// What an AVI file says of its frames' size, and its first JPEG frame. Reads chunks within the
/// bytes that are there and within their list, whatever sizes they claim, in one pass.
class CAviReader
{
public:
    /// The bytes must outlive the reader.
    CAviReader(const uint8_t *bytes, size_t count) : m_bytes(bytes), m_count(count) {}

    /// The frames' size in the main header; false, and the numbers unchanged, when there is none.
    /// They are what the file says, which may be anything.
    bool readFrameSize(uint32_t &width, uint32_t &height) const;
    /// False, and error(), when there is none.
    bool findFirstFrame();
    const uint8_t *frame() const { return m_bytes + m_frameAt; }
    size_t frameSize() const { return m_frameSize; }
    const std::string &error() const { return m_error; }

private:
    struct SChunk
    {
        uint32_t id;
        size_t at; ///< of the contents
        size_t size;
    };
    bool isAvi() const;
    bool readChunk(size_t &at, size_t end, SChunk &chunk) const;
    bool isList(const SChunk &chunk, uint32_t type) const;
    bool searchMovie(size_t at, size_t end, int depth);
    bool isJpeg(const SChunk &chunk) const;
    uint32_t word(size_t at) const;
    bool fail(const char *message);

    const uint8_t *m_bytes;
    size_t m_count;
    size_t m_frameAt = 0;
    size_t m_frameSize = 0;
    std::string m_error;
};

} // namespace kivemu
