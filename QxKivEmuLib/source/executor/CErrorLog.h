#pragma once

#include "CExecutor.h"
#include "displaylist/CommandTable.h"

#include <string>
#include <utility>
#include <vector>

namespace kivemu {

/// Collects what is wrong in a list, up to CExecutor::MaxErrors.
class CErrorLog
{
public:
    /// Where the next errors lie.
    void setItem(uint32_t id) { m_item = id; }
    void setWord(size_t index) { m_word = index; }

    void add(EOpcode command, const std::string &what);
    void add(const char *command, const std::string &what);
    std::vector<SExecutionError> take() { return std::move(m_errors); }

private:
    uint32_t m_item = 0;
    size_t m_word = 0;
    std::vector<SExecutionError> m_errors;
};

} // namespace kivemu
