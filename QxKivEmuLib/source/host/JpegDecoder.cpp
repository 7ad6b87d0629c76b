#include "CPixelPacker.h"
#include "ImageDecoders.h"

#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>

namespace kivemu {

namespace {

constexpr int MostWarnings = 100;
/// A small file may hold millions of scans, each as slow as a whole picture.
constexpr int MostScans = 100;
constexpr int FewScans = 16; ///< an ordinary progressive picture has about ten
constexpr int64_t MostScannedPixels = 20'000'000;

/// libjpeg reports by calls and expects a fatal one not to return.
struct SErrorHandler
{
    jpeg_error_mgr manager;
    std::jmp_buf escape;
    char message[JMSG_LENGTH_MAX];
};

[[noreturn]] void fail(j_common_ptr decoder)
{
    auto *handler = reinterpret_cast<SErrorHandler *>(decoder->err);
    decoder->err->format_message(decoder, handler->message);
    std::longjmp(handler->escape, 1);
}

/// Damaged data is drawn as far as it goes, but not for ever.
void countWarning(j_common_ptr decoder, int level)
{
    if (level < 0 && ++decoder->err->num_warnings > MostWarnings)
        fail(decoder);
}

void countScans(j_common_ptr decoder)
{
    const auto &jpeg = *reinterpret_cast<j_decompress_ptr>(decoder);
    const int64_t pixels = int64_t{jpeg.image_width} * int64_t{jpeg.image_height};
    const bool isLong =
        jpeg.input_scan_number > FewScans && jpeg.input_scan_number * pixels > MostScannedPixels;
    if (jpeg.input_scan_number <= MostScans && !isLong)
        return;
    auto *handler = reinterpret_cast<SErrorHandler *>(decoder->err);
    std::snprintf(handler->message, sizeof handler->message, "%s", "has too many scans");
    std::longjmp(handler->escape, 1);
}

/// One decoding. What it holds is freed by the caller, since a fatal error jumps out of run().
struct SJob
{
    jpeg_decompress_struct jpeg;
    SErrorHandler handler;
    jpeg_progress_mgr progress;
    const uint8_t *bytes;
    size_t count;
    bool mono;
    size_t budget;
    SDecodedImage *image;
    std::string *problem;
    std::vector<uint8_t> *row;
};

/// False with a problem; a fatal error of the decoder leaves by the jump.
__attribute__((noinline)) bool run(SJob &job)
{
    jpeg_decompress_struct &jpeg = job.jpeg;
    SDecodedImage &image = *job.image;
    jpeg_create_decompress(&jpeg);
    jpeg.progress = &job.progress;
    jpeg_mem_src(&jpeg, job.bytes, static_cast<unsigned long>(job.count));
    jpeg_read_header(&jpeg, TRUE);
    *job.problem = takeImageSize(jpeg.image_width, jpeg.image_height, job.mono, job.budget, image);
    if (!job.problem->empty())
        return false;
    jpeg.out_color_space = job.mono ? JCS_GRAYSCALE : JCS_RGB;
    jpeg.dct_method = JDCT_ISLOW;
    jpeg_start_decompress(&jpeg);
    const CPixelPacker packer(job.mono);
    const auto rowSize = static_cast<size_t>(image.width * packer.bytesPerPixel());
    job.row->resize(static_cast<size_t>(image.width * packer.samples()));
    image.pixels.resize(rowSize * static_cast<size_t>(image.height));
    while (jpeg.output_scanline < jpeg.output_height) {
        const size_t y = jpeg.output_scanline;
        JSAMPROW rows[1] = {job.row->data()};
        jpeg_read_scanlines(&jpeg, rows, 1);
        packer.packRow(job.row->data(), image.width, image.pixels.data() + y * rowSize);
    }
    return true;
}

/// The place to jump to lies in a function of its own: values that it kept would be lost.
bool runGuarded(SJob &job)
{
    return setjmp(job.handler.escape) ? false : run(job);
}

} // namespace

std::string decodeJpeg(const uint8_t *bytes, size_t count, bool mono, size_t budget,
                       SDecodedImage &image)
{
    std::string problem;
    std::vector<uint8_t> row;
    SJob job = {};
    job.bytes = bytes;
    job.count = count;
    job.mono = mono;
    job.budget = budget;
    job.image = &image;
    job.problem = &problem;
    job.row = &row;
    job.jpeg.err = jpeg_std_error(&job.handler.manager);
    job.handler.manager.error_exit = fail;
    job.handler.manager.emit_message = countWarning;
    job.progress.progress_monitor = countScans;
    const bool isDecoded = runGuarded(job);
    jpeg_destroy_decompress(&job.jpeg);
    if (!isDecoded && problem.empty())
        problem = job.handler.message;
    return problem;
}

} // namespace kivemu
