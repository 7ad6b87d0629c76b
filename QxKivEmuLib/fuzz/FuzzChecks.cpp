#include "FuzzChecks.h"

#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"
#include "executor/BitmapFormats.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "host/assets/ImageFile.h"
#include "pictures/CAviReader.h"
#include "raster/BitmapImage.h"
#include "raster/CRasterizer.h"
#include "support/ExampleLists.h"
#include "support/Replay.h"

#include <algorithm>
#include <zlib.h>

namespace kivemu {

namespace {

struct SSize
{
    int width;
    int height;
};
constexpr SSize FrameSizes[] = {{64, 48}, {ExampleWidth, ExampleHeight}, {1, 1}, {33, 7}};
constexpr size_t FrameSizeCount = sizeof FrameSizes / sizeof FrameSizes[0];

/// Takes numbers off the front of an input; missing bytes are zero.
class CInput
{
public:
    CInput(const uint8_t *data, size_t size) : m_data(data), m_size(size) {}

    uint32_t number(size_t bytes)
    {
        uint32_t value = 0;
        for (size_t i = 0; i < bytes && m_size > 0; ++i, ++m_data, --m_size)
            value |= static_cast<uint32_t>(*m_data) << (8 * i);
        return value;
    }

    /// In memory of its own, so that a sanitizer sees a read past the end.
    std::vector<uint8_t> bytes(size_t count)
    {
        const size_t length = std::min(count, m_size);
        std::vector<uint8_t> taken(m_data, m_data + length);
        m_data += length;
        m_size -= length;
        return taken;
    }

    std::vector<uint8_t> rest() { return bytes(m_size); }

private:
    const uint8_t *m_data;
    size_t m_size;
};

std::string checkText(const std::vector<uint8_t> &bytes)
{
    const std::vector<uint32_t> words = fromBytes(bytes.data(), bytes.size());
    std::string text = disassemble(words.data(), words.size());
    std::string error;
    if (assemble(text, &error) != words)
        return "the text form loses words: " + error;
    // The form that exported files have: a semicolon within a text would be torn apart.
    for (size_t end = 0; (end = text.find(';', end)) != std::string::npos; ++end)
        text.insert(end + 1, 1, '\n');
    if (assemble(text, &error) != words)
        return "the text form of files loses words: " + error;
    const std::vector<uint8_t> back = toBytes(words);
    if (!std::equal(back.begin(), back.end(), bytes.begin()))
        return "words lose bytes";
    if (listLength(words.data(), words.size()) > words.size())
        return "a list is longer than its words";
    return {};
}

/// The fastest or, every second time, the middle set of kernels.
EKernelSet otherKernels(uint32_t choice)
{
    if (choice % 2 && CRasterizer::hasKernels(EKernelSet::Avx2))
        return EKernelSet::Avx2;
    return CRasterizer::hasKernels(EKernelSet::Sse2) ? EKernelSet::Sse2 : EKernelSet::Plain;
}

/// Two executions tell all: with unlike kernels, over unlike surfaces.
std::string checkExecution(const std::vector<uint8_t> &bytes, const CRamG &memory, SSize size,
                           EKernelSet kernels)
{
    const std::vector<uint32_t> words = fromBytes(bytes.data(), bytes.size());
    CExecutor plain(EKernelSet::Plain);
    CExecutor other(kernels);
    const SFrame frame = execute(plain, words, memory, size.width, size.height, 0xFF000000);
    const SFrame again = execute(other, words, memory, size.width, size.height, 0xFFC0FFEE);
    if (frame.errors.size() > CExecutor::MaxErrors)
        return "too many errors";
    for (const uint32_t pixel : frame.pixels) {
        if (pixel >> 24 != 255)
            return "a pixel is not opaque";
    }
    const std::string wrong = difference(frame, again, size.width);
    return wrong.empty() ? wrong
                         : wrong + " with kernels " + std::to_string(static_cast<int>(kernels));
}

/// The one-byte choice of a format: all known ones, then unknown ones.
uint32_t chosenFormat(uint32_t byte)
{
    constexpr uint32_t Formats[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 13, 14, 255, 10, 11};
    return Formats[byte % 16];
}

bool fits(uint64_t address, uint64_t size, uint64_t memory)
{
    return address + size <= memory;
}

std::string checkTexels(const SBitmapImage &image)
{
    bool opaque = true;
    for (int y = -SBitmapImage::Border; y < image.height + SBitmapImage::Border; ++y) {
        for (int x = -SBitmapImage::Border; x < image.width + SBitmapImage::Border; ++x) {
            const uint32_t texel = *image.at(x, y);
            const uint32_t alpha = texel >> 24;
            const bool inside = x >= 0 && y >= 0 && x < image.width && y < image.height;
            if (!inside && texel != 0)
                return "the border is not transparent";
            if ((texel >> 16 & 0xFF) > alpha || (texel >> 8 & 0xFF) > alpha ||
                (texel & 0xFF) > alpha)
                return "a channel is above its alpha";
            opaque = opaque && (!inside || alpha == 255);
        }
    }
    return opaque == image.opaque ? "" : "opaque is wrong";
}

/// Puts the check sums of a PNG file right. Otherwise most changes of a file would end there, and
/// never come to what lies behind.
void repairPng(std::vector<uint8_t> &file)
{
    constexpr size_t Signature = 8;
    constexpr size_t Around = 12; // a chunk's size, name and check sum
    for (size_t at = Signature; at < file.size() && file.size() - at >= Around;) {
        uint32_t size = 0;
        for (size_t i = 0; i < 4; ++i)
            size = size << 8 | file[at + i];
        if (size > file.size() - at - Around)
            return;
        const auto sum = static_cast<uint32_t>(crc32(0, &file[at + 4], 4 + size));
        at += Around + size;
        for (size_t i = 1; i <= 4; ++i)
            file[at - i] = static_cast<uint8_t>(sum >> (8 * (i - 1)));
    }
}

} // namespace

std::string checkDisplayList(const uint8_t *data, size_t size)
{
    CInput input(data, size);
    const uint32_t choice = input.number(1);
    const SSize frame = FrameSizes[choice % FrameSizeCount];
    const std::vector<uint8_t> assets = input.bytes(input.number(2));
    CRamG memory(assets.size());
    memory.append(assets.data(), assets.size());
    const std::vector<uint8_t> list = input.rest();
    const std::string wrong = checkText(list);
    return wrong.empty()
               ? checkExecution(list, memory, frame, otherKernels(choice / FrameSizeCount))
               : wrong;
}

std::string checkAssembler(const uint8_t *data, size_t size)
{
    const std::string text(data, data + size);
    std::string error;
    const auto words = assemble(text, &error);
    if (!words)
        return error.compare(0, 5, "line ") == 0 ? "" : "refused without a message";
    const std::string normal = disassemble(words->data(), words->size());
    if (assemble(normal, &error) != words)
        return "the words do not survive: " + error;
    return {};
}

std::string checkBitmap(const uint8_t *data, size_t size)
{
    CInput input(data, size);
    const uint32_t format = chosenFormat(input.number(1));
    const uint32_t address = input.number(4);
    const uint32_t stride = input.number(4);
    const uint32_t palette = input.number(4);
    const auto width = static_cast<int>(input.number(2));
    const auto height = static_cast<int>(input.number(2));
    const std::vector<uint8_t> memory = input.rest();
    const auto image =
        decodeBitmap(memory.data(), memory.size(), format, address, stride, palette, width, height);

    const bool known = format != 10 && format != 11;
    const bool sides = width >= 1 && width <= 2048 && height >= 1 && height <= 2048;
    const uint64_t row = bitmapStride(format, width);
    const auto rows = static_cast<uint64_t>(format == 255 ? (height + 3) / 4 : height);
    const bool within =
        known && sides && fits(address, (rows - 1) * stride + row, memory.size()) &&
        (paletteSize(format) == 0 || fits(palette, paletteSize(format), memory.size()));
    if (within != (image != nullptr))
        return within ? "a good bitmap is refused" : "a bad bitmap is decoded";
    if (!image)
        return {};
    if (image->width != width || image->height != height)
        return "the size is wrong";
    return checkTexels(*image);
}

std::string checkImages(const uint8_t *data, size_t size)
{
    constexpr EImageFile Kinds[] = {EImageFile::Jpeg, EImageFile::Png, EImageFile::Avi};
    constexpr size_t Budgets[] = {0x40000, 0x100000, 1000, 0};
    CInput input(data, size);
    const uint32_t choice = input.number(1);
    const EImageFile kind = Kinds[choice % 3];
    const bool mono = choice / 3 % 2 != 0;
    const size_t budget = Budgets[choice / 6 % 4];
    std::vector<uint8_t> file = input.rest();
    if (kind == EImageFile::Png)
        repairPng(file);

    uint32_t told[2] = {};
    CAviReader(file.data(), file.size()).readFrameSize(told[0], told[1]);
    SDecodedImage image;
    const std::string problem = decodeImage(kind, file.data(), file.size(), mono, budget, image);
    if (image.pixels.size() > budget)
        return "more is decoded than there is room for";
    if (!problem.empty())
        return {};
    const bool sides = image.width >= 1 && image.width <= MaxImageSide && image.height >= 1 &&
                       image.height <= MaxImageSide;
    if (!sides)
        return "the size is beyond its limits";
    const auto pixels = static_cast<size_t>(image.width) * static_cast<size_t>(image.height);
    if (image.pixels.size() != pixels * (mono ? 1 : 2) || image.neededBytes != image.pixels.size())
        return "the pixels do not fill the size";
    SDecodedImage again;
    decodeImage(kind, file.data(), file.size(), mono, budget, again);
    return again.pixels == image.pixels ? "" : "the picture is another one each time";
}

} // namespace kivemu
