#include "PictureReading.h"

#include <csetjmp>
#include <cstdio>
#include <png.h>

namespace kivemu {

namespace {

constexpr int Channels = 4;
constexpr uint32_t Opaque = 0xFF000000;

/// One reading. An error of libpng jumps out of run(), to where this frees what is held.
struct SJob
{
    SJob(IByteSource &from, EPngRows wanted, IPictureTarget &to)
        : source(from), rows(wanted), target(to)
    {
    }
    ~SJob() { png_destroy_read_struct(&png, &info, nullptr); }
    SJob(const SJob &) = delete;
    SJob &operator=(const SJob &) = delete;

    IByteSource &source;
    EPngRows rows;
    IPictureTarget &target;
    png_structp png = nullptr;
    png_infop info = nullptr;
    char message[200] = {};
    SPictureHead head;
    std::string problem;
};

void takeBytes(png_structp png, png_bytep bytes, size_t count)
{
    if (static_cast<SJob *>(png_get_io_ptr(png))->source.read(bytes, count) < count)
        png_error(png, "ends too early");
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

void takePalette(SJob &job)
{
    png_colorp colours = nullptr;
    png_bytep alphas = nullptr;
    png_color_16p clear = nullptr;
    int colourCount = 0;
    int alphaCount = 0;
    png_get_PLTE(job.png, job.info, &colours, &colourCount);
    const bool hasClear = png_get_tRNS(job.png, job.info, &alphas, &alphaCount, &clear) != 0;
    std::vector<uint32_t> &palette = job.head.palette;
    if (png_get_color_type(job.png, job.info) == PNG_COLOR_TYPE_GRAY) {
        const uint32_t last = (1U << png_get_bit_depth(job.png, job.info)) - 1;
        for (uint32_t i = 0; i <= last; ++i)
            palette.push_back((hasClear && clear->gray == i ? 0 : Opaque) |
                              i * 255 / last * 0x10101);
        return;
    }
    for (int i = 0; i < colourCount; ++i) {
        const uint32_t alpha = i < alphaCount ? alphas[i] : 255;
        palette.push_back(alpha << 24 | uint32_t{colours[i].red} << 16 |
                          uint32_t{colours[i].green} << 8 | colours[i].blue);
    }
}

/// Two colours are told apart by themselves, and whole bytes of grey are no worse than indices.
bool hasIndices(const SJob &job)
{
    const int depth = png_get_bit_depth(job.png, job.info);
    if (job.rows != EPngRows::Indices || depth == 1 || depth > 8)
        return false;
    const int type = png_get_color_type(job.png, job.info);
    const bool hasClear = png_get_valid(job.png, job.info, PNG_INFO_tRNS) != 0;
    return type == PNG_COLOR_TYPE_PALETTE ||
           (type == PNG_COLOR_TYPE_GRAY && (depth < 8 || hasClear));
}

/// False with a problem; an error of libpng leaves by the jump.
__attribute__((noinline)) bool run(SJob &job)
{
    png_structp png = job.png;
    png_set_read_fn(png, &job, takeBytes);
    png_set_benign_errors(png, 1);
    // A small text or profile may unpack to gigabytes: all chunks are skipped but those of pixels.
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(png, job.info);
    SPictureHead &head = job.head;
    head.width = png_get_image_width(png, job.info);
    head.height = png_get_image_height(png, job.info);
    const bool indices = hasIndices(job);
    if (indices)
        takePalette(job);
    job.problem = job.target.begin(head);
    if (!job.problem.empty())
        return false;
    if (indices) {
        png_set_packing(png);
    } else {
        png_set_scale_16(png); // rounds to the nearest
        png_set_expand(png);
        png_set_gray_to_rgb(png);
        png_set_bgr(png);
        png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    }
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, job.info);
    if (png_get_rowbytes(png, job.info) != size_t{head.width} * (indices ? 1 : Channels))
        png_error(png, "has an unknown layout");
    for (int pass = 0; pass < passes; ++pass)
        for (int y = 0; y < static_cast<int>(head.height); ++y)
            png_read_row(png, job.target.row(y), nullptr);
    return true;
}

/// The place to jump to lies in a function of its own: values that it kept would be lost.
bool runGuarded(SJob &job)
{
    return setjmp(png_jmpbuf(job.png)) ? false : run(job);
}

} // namespace

std::string readPng(IByteSource &source, EPngRows rows, IPictureTarget &target)
{
    SJob job(source, rows, target);
    job.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &job, fail, ignoreWarning);
    job.info = job.png ? png_create_info_struct(job.png) : nullptr;
    if (job.info && runGuarded(job))
        return {};
    return job.problem.empty() ? "cannot be decoded: " + std::string(job.message) : job.problem;
}

} // namespace kivemu
