#pragma once

#include "ByteSource.h"

namespace kivemu {

/// What is known of a picture before it is decoded.
struct SPictureHead
{
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<uint32_t> palette; ///< 0xAARRGGBB; not empty when the rows hold indices
    int orientation = 1;           ///< a camera's mark, 1 (as it is) to 8, see Orientation.h
    bool isCmyk = false;
};

/// Takes a picture: room is made by the one who knows what it may cost.
class IPictureTarget
{
public:
    virtual ~IPictureTarget() = default;
    /// Gives a reason not to decode the picture, otherwise an empty text.
    virtual std::string begin(const SPictureHead &head) = 0;
    /// Where the samples of a row go. Interlaced rows are asked for several times and must stay.
    virtual uint8_t *row(int y) noexcept = 0;
    /// All rows above and this one are complete (JPEG only).
    virtual void finishRow(int) noexcept {}
};

/// Bytes that a picture may cost, all in all; its pixels are those of the target.
constexpr uint64_t memoryOfPicture(uint64_t pixels)
{
    return pixels * 8 + (uint64_t{16} << 20);
}

enum class EPngRows {
    Colours, ///< four bytes a pixel: blue, green, red, alpha (straight)
    Indices, ///< of indexed and of coarse grey pictures one byte a pixel and a palette, else as
             ///< above
};
enum class EJpegRows {
    Colours, ///< three bytes a pixel: red, green, blue
    Grey,    ///< one byte a pixel
};

/// Read a whole picture, samples as they are coded (no gamma, no profile) and brought to 8 bits.
/// They give the reason when they fail, otherwise an empty text. Texts, profiles and all else that
/// is not needed is skipped undecoded.
std::string readPng(IByteSource &source, EPngRows rows, IPictureTarget &target);
/// Not turned: the target is told how the picture should be.
std::string readJpeg(IByteSource &source, EJpegRows rows, IPictureTarget &target);

} // namespace kivemu
