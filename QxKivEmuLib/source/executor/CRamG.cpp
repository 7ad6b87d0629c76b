#include "CRamG.h"

#include <atomic>

namespace kivemu {

namespace {

constexpr size_t Alignment = 4;

uint64_t nextGeneration()
{
    static std::atomic<uint64_t> last{0};
    return ++last;
}

} // namespace

CRamG::CRamG(size_t capacity) : m_capacity(capacity)
{
}

void CRamG::clear()
{
    m_bytes.clear();
    m_generation = nextGeneration();
}

std::optional<uint32_t> CRamG::append(const uint8_t *bytes, size_t count)
{
    const size_t address = (m_bytes.size() + Alignment - 1) / Alignment * Alignment;
    if (address > m_capacity || count > m_capacity - address)
        return std::nullopt;
    m_bytes.resize(address);
    m_bytes.insert(m_bytes.end(), bytes, bytes + count);
    m_generation = nextGeneration();
    return static_cast<uint32_t>(address);
}

} // namespace kivemu
