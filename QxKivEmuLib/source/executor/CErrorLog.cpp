#include "CErrorLog.h"

namespace kivemu {

void CErrorLog::add(EOpcode command, const std::string &what)
{
    add(findCommand(static_cast<uint8_t>(command))->name, what);
}

void CErrorLog::add(const char *command, const std::string &what)
{
    if (m_errors.size() < CExecutor::MaxErrors)
        m_errors.push_back({m_item, m_word, std::string(command) + ": " + what});
}

} // namespace kivemu
