#pragma once

#include <cstddef>
#include <cstdint>

namespace kivemu {

/// How a camera's notes (the Exif marker of a JPEG file) say that a picture is to be turned:
/// 1 as it is, 2 mirrored, 3 by 180 degrees, 4 upside down, 5 as 4 and then by 90 degrees,
/// 6 by 90 degrees (clockwise), 7 mirrored and then by 90, 8 by 270. 1 when they do not say.
int exifOrientation(const uint8_t *bytes, size_t count);

} // namespace kivemu
