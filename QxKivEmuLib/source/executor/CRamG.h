#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace kivemu {

/// The chip's general-purpose graphics memory, which holds the assets of one screen.
/// Every write moves the generation on, so that whoever caches what it decoded can tell.
/// Generations are unique in the process: two memories with the same one hold the same bytes.
class CRamG
{
public:
    explicit CRamG(size_t capacity);

    size_t capacity() const { return m_capacity; }
    size_t used() const { return m_bytes.size(); }
    uint64_t generation() const { return m_generation; }   ///< 0: never written
    const uint8_t *data() const { return m_bytes.data(); } ///< used() bytes

    void clear();
    /// Copies bytes behind those already there, aligned to 4 bytes; gives their address, or nothing
    /// when they do not fit (the memory is then unchanged).
    std::optional<uint32_t> append(const uint8_t *bytes, size_t count);

private:
    size_t m_capacity;
    uint64_t m_generation = 0;
    std::vector<uint8_t> m_bytes;
};

} // namespace kivemu
