#include "Orientation.h"
#include "PictureReading.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>
// after what it needs
#include <jerror.h>

namespace kivemu {

namespace {

constexpr int MostWarnings = 100;
/// A small file may hold millions of scans, each as slow as a whole picture.
constexpr int MostScans = 100;
constexpr int FewScans = 16; ///< an ordinary progressive picture has about ten
constexpr int64_t MostScannedPixels = 20'000'000;
constexpr size_t PieceBytes = 4096;
constexpr size_t MostExif = 65533; ///< bytes of a marker
constexpr int CmykChannels = 4;
constexpr long OutputChannels = 3;
constexpr long WorkBytes = 1L << 20; ///< rows and tables, apart from the coefficients

/// libjpeg reports by calls and expects a fatal one not to return.
struct SErrorHandler
{
    jpeg_error_mgr manager;
    std::jmp_buf escape;
    char message[JMSG_LENGTH_MAX];
};

/// One reading. What it holds is freed by the caller, since a fatal error jumps out of run().
struct SJob
{
    jpeg_decompress_struct jpeg;
    SErrorHandler handler;
    jpeg_progress_mgr progress;
    jpeg_source_mgr input;
    IByteSource *source;
    EJpegRows rows;
    IPictureTarget *target;
    std::string *problem;
    std::vector<uint8_t> *piece;
    std::vector<uint8_t> *exif; ///< as long as it may become, since it is filled by a call from C
    size_t exifSize;
    std::vector<uint8_t> *cmykRow;
    bool isHeadRead;
    bool isAtEnd;
};

[[noreturn]] void leave(j_common_ptr decoder, const char *message)
{
    auto *handler = reinterpret_cast<SErrorHandler *>(decoder->err);
    std::snprintf(handler->message, sizeof handler->message, "%s", message);
    std::longjmp(handler->escape, 1);
}

[[noreturn]] void fail(j_common_ptr decoder)
{
    if (decoder->err->msg_code == JERR_NO_BACKING_STORE)
        leave(decoder, "needs more memory than a picture of its size may");
    char message[JMSG_LENGTH_MAX];
    decoder->err->format_message(decoder, message);
    leave(decoder, message);
}

/// Damaged data is drawn as far as it goes, but not for ever; where data is missing there is no
/// more.
void countWarning(j_common_ptr decoder, int level)
{
    const bool isMissing = level < 0 && decoder->err->msg_code == JWRN_HIT_MARKER;
    if (isMissing && static_cast<const SJob *>(decoder->client_data)->isAtEnd)
        leave(decoder, "ends too early");
    if (level < 0 && ++decoder->err->num_warnings > MostWarnings)
        fail(decoder);
}

void countScans(j_common_ptr decoder)
{
    const auto &jpeg = *reinterpret_cast<j_decompress_ptr>(decoder);
    const int64_t pixels = int64_t{jpeg.image_width} * int64_t{jpeg.image_height};
    const bool isLong =
        jpeg.input_scan_number > FewScans && jpeg.input_scan_number * pixels > MostScannedPixels;
    if (jpeg.input_scan_number > MostScans || isLong)
        leave(decoder, "has too many scans");
}

void doNothing(j_decompress_ptr)
{
}

/// A file without the mark of its end is ended here; whether it ends too early shows when the
/// decoder lacks data. Of pictures in several scans it does not.
boolean fillInput(j_decompress_ptr jpeg)
{
    auto &job = *static_cast<SJob *>(jpeg->client_data);
    std::vector<uint8_t> &piece = *job.piece;
    job.input.next_input_byte = piece.data();
    job.input.bytes_in_buffer = job.source->read(piece.data(), piece.size());
    if (job.input.bytes_in_buffer == 0) {
        if (job.isAtEnd || (job.isHeadRead && jpeg_has_multiple_scans(jpeg)))
            leave(reinterpret_cast<j_common_ptr>(jpeg), "ends too early");
        job.isAtEnd = true;
        piece[0] = 0xFF;
        piece[1] = JPEG_EOI;
        job.input.bytes_in_buffer = 2;
    }
    return TRUE;
}

void skipInput(j_decompress_ptr jpeg, long count)
{
    jpeg_source_mgr &input = *jpeg->src;
    const auto all = static_cast<size_t>(std::max(count, 0L));
    const size_t there = std::min(all, input.bytes_in_buffer);
    input.next_input_byte += there;
    input.bytes_in_buffer -= there;
    static_cast<SJob *>(jpeg->client_data)->source->skip(all - there);
}

uint8_t nextByte(j_decompress_ptr jpeg)
{
    if (jpeg->src->bytes_in_buffer == 0)
        fillInput(jpeg);
    --jpeg->src->bytes_in_buffer;
    return *jpeg->src->next_input_byte++;
}

/// Keeps the first marker that may hold a camera's notes. libjpeg itself would keep all of them.
boolean takeExif(j_decompress_ptr jpeg)
{
    auto &job = *static_cast<SJob *>(jpeg->client_data);
    const int high = nextByte(jpeg);
    const int size = (high << 8 | nextByte(jpeg)) - 2;
    if (job.exifSize > 0) {
        skipInput(jpeg, size);
        return TRUE;
    }
    for (int i = 0; i < size; ++i)
        (*job.exif)[job.exifSize++] = nextByte(jpeg);
    return TRUE;
}

/// Inks are stored inverted, as by all programs that write such files.
void fromCmyk(const uint8_t *inks, int width, uint8_t *target)
{
    for (int x = 0; x < width; ++x, inks += CmykChannels)
        for (int i = 0; i < 3; ++i)
            *target++ = static_cast<uint8_t>(inks[3] * inks[i] / 255);
}

/// Takes the size, the turn and the leave of the target. False with a problem.
bool begin(SJob &job)
{
    jpeg_decompress_struct &jpeg = job.jpeg;
    SPictureHead head;
    head.width = jpeg.image_width;
    head.height = jpeg.image_height;
    head.orientation = exifOrientation(job.exif->data(), job.exifSize);
    head.isCmyk = jpeg.jpeg_color_space == JCS_CMYK || jpeg.jpeg_color_space == JCS_YCCK;
    *job.problem = job.target->begin(head);
    if (!job.problem->empty())
        return false;
    const auto pixels = static_cast<uint64_t>(head.width) * head.height;
    jpeg.mem->max_memory_to_use = static_cast<long>(memoryOfPicture(pixels)) - WorkBytes -
                                  static_cast<long>(pixels) * OutputChannels;
    if (head.isCmyk)
        job.cmykRow->resize(size_t{head.width} * CmykChannels);
    jpeg.out_color_space = head.isCmyk                   ? JCS_CMYK
                           : job.rows == EJpegRows::Grey ? JCS_GRAYSCALE
                                                         : JCS_RGB;
    return true;
}

/// False with a problem; a fatal error of the decoder leaves by the jump.
__attribute__((noinline)) bool run(SJob &job)
{
    jpeg_decompress_struct &jpeg = job.jpeg;
    jpeg_create_decompress(&jpeg);
    jpeg.client_data = &job;
    jpeg.progress = &job.progress;
    jpeg.src = &job.input;
    jpeg_set_marker_processor(&jpeg, JPEG_APP0 + 1, takeExif);
    jpeg_read_header(&jpeg, TRUE);
    job.isHeadRead = true;
    if (!begin(job))
        return false;
    jpeg.dct_method = JDCT_ISLOW;
    jpeg_start_decompress(&jpeg);
    const bool isCmyk = jpeg.out_color_space == JCS_CMYK;
    while (jpeg.output_scanline < jpeg.output_height) {
        const auto y = static_cast<int>(jpeg.output_scanline);
        uint8_t *row = job.target->row(y);
        JSAMPROW rows[1] = {isCmyk ? job.cmykRow->data() : row};
        jpeg_read_scanlines(&jpeg, rows, 1);
        if (isCmyk)
            fromCmyk(rows[0], static_cast<int>(jpeg.output_width), row);
        job.target->finishRow(y);
    }
    return true;
}

/// The place to jump to lies in a function of its own: values that it kept would be lost.
bool runGuarded(SJob &job)
{
    return setjmp(job.handler.escape) ? false : run(job);
}

} // namespace

std::string readJpeg(IByteSource &source, EJpegRows rows, IPictureTarget &target)
{
    std::string problem;
    std::vector<uint8_t> piece(PieceBytes);
    std::vector<uint8_t> exif(MostExif);
    std::vector<uint8_t> cmykRow;
    SJob job = {};
    job.source = &source;
    job.rows = rows;
    job.target = &target;
    job.problem = &problem;
    job.piece = &piece;
    job.exif = &exif;
    job.cmykRow = &cmykRow;
    job.input.init_source = doNothing;
    job.input.term_source = doNothing;
    job.input.fill_input_buffer = fillInput;
    job.input.skip_input_data = skipInput;
    job.input.resync_to_restart = jpeg_resync_to_restart;
    job.jpeg.err = jpeg_std_error(&job.handler.manager);
    job.handler.manager.error_exit = fail;
    job.handler.manager.emit_message = countWarning;
    job.progress.progress_monitor = countScans;
    const bool isRead = runGuarded(job);
    jpeg_destroy_decompress(&job.jpeg);
    if (!isRead && problem.empty())
        problem = "cannot be decoded: " + std::string(job.handler.message);
    return problem;
}

} // namespace kivemu
