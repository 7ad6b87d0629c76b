#pragma once

namespace kivtools {

/// A format in which each pixel is a code of its own: the widths of its fields in bits, in the
/// order in which they lie from the most significant bit down.
struct SChipFormat
{
    int code;
    const char *name;
    int alpha;
    int red;
    int green;
    int blue;
    int grey; ///< luminance formats have this field alone

    constexpr int bitsPerPixel() const { return alpha + red + green + blue + grey; }
};

/// The format with this code; null when the tool has none.
const SChipFormat *chipFormat(int code);

} // namespace kivtools
