#include "CPixelPacker.h"
#include "ImageDecoders.h"

#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>

namespace kivemu {

namespace {

constexpr int MostWarnings = 100;

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

struct SDecoder
{
    jpeg_decompress_struct jpeg;
    SErrorHandler handler;
};

/// What a fatal error jumps out of: holds nothing with a destructor. False when `problem` was set.
/// Kept a function of its own, because what a compiler merges into one with setjmp may be lost.
[[gnu::noinline]] bool decodeRows(SDecoder &decoder, const uint8_t *bytes, size_t count, bool mono,
                                  size_t budget, SDecodedImage &image, std::string &problem,
                                  std::vector<uint8_t> &row)
{
    jpeg_decompress_struct &jpeg = decoder.jpeg;
    jpeg_create_decompress(&jpeg);
    jpeg_mem_src(&jpeg, bytes, static_cast<unsigned long>(count));
    jpeg_read_header(&jpeg, TRUE);
    problem = takeImageSize(jpeg.image_width, jpeg.image_height, mono, budget, image);
    if (!problem.empty())
        return false;
    jpeg.out_color_space = mono ? JCS_GRAYSCALE : JCS_RGB;
    jpeg.dct_method = JDCT_ISLOW;
    jpeg_start_decompress(&jpeg);
    const CPixelPacker packer(mono);
    const auto rowSize = static_cast<size_t>(image.width * packer.bytesPerPixel());
    row.resize(static_cast<size_t>(image.width * packer.samples()));
    image.pixels.resize(rowSize * static_cast<size_t>(image.height));
    while (jpeg.output_scanline < jpeg.output_height) {
        const size_t y = jpeg.output_scanline;
        JSAMPROW rows[1] = {row.data()};
        jpeg_read_scanlines(&jpeg, rows, 1);
        packer.packRow(row.data(), image.width, image.pixels.data() + y * rowSize);
    }
    return true;
}

/// False with the handler's message or, when `problem` was set, with that.
bool decode(SDecoder &decoder, const uint8_t *bytes, size_t count, bool mono, size_t budget,
            SDecodedImage &image, std::string &problem, std::vector<uint8_t> &row)
{
    if (setjmp(decoder.handler.escape))
        return false;
    return decodeRows(decoder, bytes, count, mono, budget, image, problem, row);
}

} // namespace

std::string decodeJpeg(const uint8_t *bytes, size_t count, bool mono, size_t budget,
                       SDecodedImage &image)
{
    SDecoder decoder = {};
    decoder.jpeg.err = jpeg_std_error(&decoder.handler.manager);
    decoder.handler.manager.error_exit = fail;
    decoder.handler.manager.emit_message = countWarning;
    std::vector<uint8_t> row;
    std::string problem;
    const bool isDecoded = decode(decoder, bytes, count, mono, budget, image, problem, row);
    jpeg_destroy_decompress(&decoder.jpeg);
    if (!isDecoded && problem.empty())
        problem = decoder.handler.message;
    return problem;
}

} // namespace kivemu
