#pragma once

#include "CBitmapCache.h"
#include "ChipState.h"
#include "raster/BitmapImage.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kivemu {

/// The commands that draw bitmaps, and what they set.
class CBitmapCommands
{
public:
    /// Both must outlive the commands, and the memory must stay as it is.
    CBitmapCommands(const SExecution &execution, CBitmapCache &bitmaps);

    // `words` starts with the header.
    void source(const uint32_t *words);
    void layout(const uint32_t *words);
    void palette(const uint32_t *words);
    void transform(const uint32_t *words);
    void mode(const uint32_t *words);
    void draw(const uint32_t *words);

private:
    const SBitmapImage *image();
    std::string fault() const;

    const SExecution m_chip;
    CBitmapCache &m_bitmaps;
    SBitmapKey m_key;
    SBitmapPlacement m_placement{};
    std::shared_ptr<const SBitmapImage> m_image; ///< of m_key; null when not looked up yet
};

} // namespace kivemu
