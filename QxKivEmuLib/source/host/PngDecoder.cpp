#include "CPixelPacker.h"
#include "ImageDecoders.h"

#include <cstring>
#include <png.h>

namespace kivemu {

namespace {

constexpr int Channels = 4;

/// A row of straight RGBA over black, in place, as RGB or grey. Works on the coded values, as the
/// chip itself blends, and with the weights of JPEG; libpng would do either in linear light.
void flattenRow(uint8_t *row, int width, bool mono)
{
    uint8_t *target = row;
    for (int x = 0; x < width; ++x) {
        const uint8_t *pixel = row + x * Channels;
        const uint32_t alpha = pixel[3];
        const uint32_t red = pixel[0] * alpha;
        const uint32_t green = pixel[1] * alpha;
        const uint32_t blue = pixel[2] * alpha;
        if (mono) {
            *target++ =
                static_cast<uint8_t>((299 * red + 587 * green + 114 * blue + 127500) / 255000);
            continue;
        }
        for (const uint32_t part : {red, green, blue})
            *target++ = static_cast<uint8_t>((part + 127) / 255);
    }
}

} // namespace

std::string decodePng(const uint8_t *bytes, size_t count, bool mono, size_t budget,
                      SDecodedImage &image)
{
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    std::string problem;
    if (!png_image_begin_read_from_memory(&png, bytes, count))
        problem = png.message;
    else
        problem = takeImageSize(png.width, png.height, mono, budget, image);
    if (problem.empty()) {
        png.format = PNG_FORMAT_RGBA;
        const CPixelPacker packer(mono);
        const auto sourceRow = static_cast<size_t>(image.width) * Channels;
        const auto rowSize = static_cast<size_t>(image.width * packer.bytesPerPixel());
        std::vector<uint8_t> samples(sourceRow * static_cast<size_t>(image.height));
        image.pixels.resize(rowSize * static_cast<size_t>(image.height));
        if (!png_image_finish_read(&png, nullptr, samples.data(), static_cast<int>(sourceRow),
                                   nullptr))
            problem = png.message;
        for (size_t y = 0; problem.empty() && y < static_cast<size_t>(image.height); ++y) {
            uint8_t *row = samples.data() + y * sourceRow;
            flattenRow(row, image.width, mono);
            packer.packRow(row, image.width, image.pixels.data() + y * rowSize);
        }
    }
    png_image_free(&png);
    return problem;
}

} // namespace kivemu
