#include "CPixelPacker.h"
#include "ImageDecoders.h"

#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <png.h>

namespace kivemu {

namespace {

constexpr int Channels = 4;

/// A row of straight RGBA over black, in place, as RGB or grey. Works on the coded values, as the
/// chip itself blends, and with the weights of JPEG.
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

/// One decoding. What it holds is freed by the caller, since an error of libpng jumps out of run().
struct SJob
{
    png_structp png;
    png_infop info;
    const uint8_t *bytes;
    size_t count;
    char message[200];
    bool mono;
    size_t budget;
    SDecodedImage *image;
    std::string *problem;
    std::vector<uint8_t> *samples; ///< straight RGBA, rows packed
};

void takeBytes(png_structp png, png_bytep target, size_t count)
{
    auto *job = static_cast<SJob *>(png_get_io_ptr(png));
    if (count > job->count)
        png_error(png, "ends too early");
    std::memcpy(target, job->bytes, count);
    job->bytes += count;
    job->count -= count;
}

[[noreturn]] void fail(png_structp png, png_const_charp message)
{
    auto *job = static_cast<SJob *>(png_get_error_ptr(png));
    std::snprintf(job->message, sizeof job->message, "%s", message);
    png_longjmp(png, 1);
}

void ignoreWarning(png_structp, png_const_charp)
{
}

/// Samples as they are coded, brought to 8 bits: no gamma and no colour profile of the file is
/// applied, as by the tools that convert bitmaps. False with a problem; an error of libpng leaves
/// by the jump.
__attribute__((noinline)) bool run(SJob &job)
{
    png_structp png = job.png;
    png_set_read_fn(png, &job, takeBytes);
    png_set_benign_errors(png, 1);
    png_read_info(png, job.info);
    SDecodedImage &image = *job.image;
    *job.problem = takeImageSize(png_get_image_width(png, job.info),
                                 png_get_image_height(png, job.info), job.mono, job.budget, image);
    if (!job.problem->empty())
        return false;
    png_set_scale_16(png); // rounds to the nearest
    png_set_expand(png);
    png_set_gray_to_rgb(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, job.info);
    const auto rowSize = static_cast<size_t>(image.width) * Channels;
    if (png_get_rowbytes(png, job.info) != rowSize)
        png_error(png, "has an unknown layout");
    job.samples->resize(rowSize * static_cast<size_t>(image.height));
    for (int pass = 0; pass < passes; ++pass)
        for (size_t y = 0; y < static_cast<size_t>(image.height); ++y)
            png_read_row(png, job.samples->data() + y * rowSize, nullptr);
    return true;
}

/// The place to jump to lies in a function of its own: values that it kept would be lost.
bool runGuarded(SJob &job)
{
    return setjmp(png_jmpbuf(job.png)) ? false : run(job);
}

} // namespace

std::string decodePng(const uint8_t *bytes, size_t count, bool mono, size_t budget,
                      SDecodedImage &image)
{
    std::string problem;
    std::vector<uint8_t> samples;
    SJob job = {};
    job.bytes = bytes;
    job.count = count;
    job.mono = mono;
    job.budget = budget;
    job.image = &image;
    job.problem = &problem;
    job.samples = &samples;
    job.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &job, fail, ignoreWarning);
    job.info = job.png ? png_create_info_struct(job.png) : nullptr;
    const bool isDecoded = job.info && runGuarded(job);
    png_destroy_read_struct(&job.png, &job.info, nullptr);
    if (!isDecoded)
        return problem.empty() ? "cannot be decoded: " + std::string(job.message) : problem;

    const CPixelPacker packer(mono);
    const auto sourceRow = static_cast<size_t>(image.width) * Channels;
    const auto rowSize = static_cast<size_t>(image.width * packer.bytesPerPixel());
    image.pixels.resize(rowSize * static_cast<size_t>(image.height));
    for (size_t y = 0; y < static_cast<size_t>(image.height); ++y) {
        uint8_t *row = samples.data() + y * sourceRow;
        flattenRow(row, image.width, mono);
        packer.packRow(row, image.width, image.pixels.data() + y * rowSize);
    }
    return problem;
}

} // namespace kivemu
