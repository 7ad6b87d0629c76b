#pragma once

#include "executor/BitmapFormats.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kivemu {

/// A picture in one of the chip's formats.
struct SDecodedImage
{
    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels; ///< RGB565, or L8 when mono; rows packed
    uint64_t fileBytes = 0;      ///< that were read, comments and the like left out
    uint64_t neededBytes = 0;    ///< of the pixels, also when they are too many to be decoded
};

constexpr int MaxImageSide = MaxBitmapSide; ///< more could be decoded, but not drawn

/// Decodes a JPEG or PNG file, or the first frame of an AVI file of JPEG frames: suffix and
/// signature must both say so. The size is asked first; a picture with a side over MaxImageSide, or
/// of more than `budget` bytes, is not decoded. Gives the reason when it fails, else an empty text.
std::string decodeImageFile(const std::string &path, bool mono, size_t budget,
                            SDecodedImage &image);

enum class EImageFile { Jpeg, Png, Avi };
/// The same from bytes in memory.
std::string decodeImage(EImageFile kind, const uint8_t *bytes, size_t count, bool mono,
                        size_t budget, SDecodedImage &image);

} // namespace kivemu
