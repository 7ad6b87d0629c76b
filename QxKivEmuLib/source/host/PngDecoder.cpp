#include "CPixelPacker.h"
#include "ImageDecoders.h"

#include <cstring>
#include <png.h>

namespace kivemu {

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
        png.format = mono ? PNG_FORMAT_GRAY : PNG_FORMAT_RGB;
        const CPixelPacker packer(mono);
        const auto sourceRow = static_cast<size_t>(image.width * packer.samples());
        const auto rowSize = static_cast<size_t>(image.width * packer.bytesPerPixel());
        std::vector<uint8_t> samples(sourceRow * static_cast<size_t>(image.height));
        image.pixels.resize(rowSize * static_cast<size_t>(image.height));
        const png_color black = {0, 0, 0};
        if (!png_image_finish_read(&png, &black, samples.data(), static_cast<int>(sourceRow),
                                   nullptr))
            problem = png.message;
        for (size_t y = 0; problem.empty() && y < static_cast<size_t>(image.height); ++y)
            packer.packRow(samples.data() + y * sourceRow, image.width,
                           image.pixels.data() + y * rowSize);
    }
    png_image_free(&png);
    return problem;
}

} // namespace kivemu
