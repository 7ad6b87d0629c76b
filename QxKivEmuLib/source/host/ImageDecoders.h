#pragma once

#include "ImageFile.h"

namespace kivemu {

/// Checks a picture's size before it is decoded: nothing of it is allocated when it is too large.
std::string takeImageSize(uint64_t width, uint64_t height, bool mono, size_t budget,
                          SDecodedImage &image);

std::string decodeJpeg(const uint8_t *bytes, size_t count, bool mono, size_t budget,
                       SDecodedImage &image);
/// Translucent pixels are laid over black, as the chip blends.
std::string decodePng(const uint8_t *bytes, size_t count, bool mono, size_t budget,
                      SDecodedImage &image);

} // namespace kivemu
