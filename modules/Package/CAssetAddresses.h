#pragma once

#include "displaylist/FontBlock.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace kivemu {
struct SCommand;
}

/// Follows a display list's state: where in RAM_G lies what its commands draw.
class CAssetAddresses
{
public:
    /// The list's next command; `header` is the index of its first word.
    void takeCommand(const kivemu::SCommand &command, const uint32_t *words, size_t header);
    /// The asset that the command names, a BITMAP_SOURCE or FONT; nothing for others.
    std::optional<uint32_t> named() const { return m_named; }
    /// The asset that the command draws from, a BITMAP or GLYPH; nothing for others.
    std::optional<uint32_t> drawn() const { return m_drawn; }

private:
    std::array<std::optional<uint32_t>, kivemu::FontHandles> m_fonts;
    std::optional<uint32_t> m_font; ///< of the text
    std::optional<uint32_t> m_bitmap;
    std::optional<uint32_t> m_named;
    std::optional<uint32_t> m_drawn;
};
