#pragma once

#include "kiv_panel.h"

#include <cstdint>
#include <string>
#include <vector>

/// The two memories of a chip behind a bus. What the bus must not do is noted, and not done:
/// writing outside of a memory, unaligned, or while a list is drawn, which the chip takes its time
/// for.
class CChip
{
public:
    explicit CChip(uint32_t chipCode);

    /// The context is this object, which must stay where it is.
    kiv_bus bus();
    /// The picture of the list in RAM_DL; `errors` gets what is wrong in it.
    std::vector<uint32_t> draw(int width, int height, std::vector<std::string> *errors) const;

    const std::vector<uint8_t> &ramG() const { return m_memories[KIV_RAM_G]; }
    /// Of the bus.
    const std::vector<std::string> &errors() const { return m_errors; }
    /// Bytes and calls that went to RAM_G so far.
    uint64_t loadedBytes() const { return m_loadedBytes; }
    int loads() const { return m_loads; }

private:
    void write(int memory, uint32_t offset, const uint8_t *bytes, uint32_t count);
    void show();

    std::vector<uint8_t> m_memories[2];
    std::vector<std::string> m_errors;
    uint64_t m_loadedBytes = 0;
    size_t m_loadedEnd = 0;
    int m_loads = 0;
    bool m_isListWritten = false;
    bool m_isDrawing = false;
};
