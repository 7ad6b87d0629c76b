#include "CChip.h"

#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "support/Replay.h"

#include <algorithm>

namespace {

constexpr uint8_t Garbage = 0xA5; ///< what the memories hold before anyone writes

} // namespace

CChip::CChip(uint32_t chipCode)
{
    const bool isSecond = chipCode >= 0x110 && chipCode <= 0x113;
    m_memories[KIV_RAM_G].assign(isSecond ? 0x100000 : 0x40000, Garbage);
    m_memories[KIV_RAM_DL].assign(isSecond ? 0x8000 : 0x2000, Garbage);
}

kiv_bus CChip::bus()
{
    return {this,
            [](void *chip, int memory, uint32_t offset, const uint8_t *bytes, uint32_t count) {
                static_cast<CChip *>(chip)->write(memory, offset, bytes, count);
            },
            [](void *chip) { static_cast<CChip *>(chip)->show(); },
            [](void *chip) { static_cast<CChip *>(chip)->m_isDrawing = false; }};
}

void CChip::write(int memory, uint32_t offset, const uint8_t *bytes, uint32_t count)
{
    if (memory != KIV_RAM_G && memory != KIV_RAM_DL) {
        m_errors.emplace_back("a write to no memory");
        return;
    }
    std::vector<uint8_t> &target = m_memories[memory];
    if (m_isDrawing)
        m_errors.emplace_back("a write while the list is drawn");
    if (offset % 4 != 0 || count % 4 != 0 || count == 0)
        m_errors.emplace_back("a write of odd bytes");
    if (offset > target.size() || count > target.size() - offset) {
        m_errors.emplace_back("a write outside of the memory");
        return;
    }
    std::copy_n(bytes, count, target.begin() + offset);
    if (memory == KIV_RAM_G) {
        m_loadedBytes += count;
        m_loadedEnd = std::max<size_t>(m_loadedEnd, offset + count);
        ++m_loads;
    } else {
        m_isListWritten = true;
    }
}

void CChip::show()
{
    if (!m_isListWritten)
        m_errors.emplace_back("shown without a list");
    m_isListWritten = false;
    m_isDrawing = true;
}

std::vector<uint32_t> CChip::draw(int width, int height, std::vector<std::string> *errors) const
{
    kivemu::CRamG memory(m_loadedEnd); // what lies behind is an error, not garbage
    memory.append(ramG().data(), m_loadedEnd);
    const std::vector<uint8_t> &list = m_memories[KIV_RAM_DL];
    kivemu::CExecutor executor;
    kivemu::SFrame frame = kivemu::execute(executor, kivemu::fromBytes(list.data(), list.size()),
                                           memory, width, height, 0xFFC0FFEE);
    *errors = std::move(frame.errors);
    return std::move(frame.pixels);
}
