#pragma once

#include <cstddef>
#include <cstdint>

namespace kivemu {

/// What the head of a bitmap (BMP file) says.
struct SBitmapHead
{
    uint32_t width = 0;
    uint32_t height = 0;
    uint32_t dataStart = 0; ///< bytes from the file's start to the pixels
};

constexpr size_t BitmapHeadBytes = 34; ///< all that is asked for of a file

/// False when it is no bitmap, or one of a layout that is not known. Of the size nothing is
/// promised but that it is not empty.
bool readBitmapHead(const uint8_t *bytes, size_t count, SBitmapHead &head);

} // namespace kivemu
