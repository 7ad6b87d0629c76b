#include "MediaTargets.h"

#include "CPixelPacker.h"

namespace kivemu {

namespace {

constexpr int Channels = 4;

/// A row of straight blue, green, red and alpha over black, in place, as RGB or grey. Works on the
/// coded values, as the chip itself blends, and with the weights of JPEG.
void flattenRow(uint8_t *row, int width, bool mono)
{
    uint8_t *target = row;
    for (int x = 0; x < width; ++x) {
        const uint8_t *pixel = row + ptrdiff_t{x} * Channels;
        const uint32_t alpha = pixel[3];
        const uint32_t red = pixel[2] * alpha;
        const uint32_t green = pixel[1] * alpha;
        const uint32_t blue = pixel[0] * alpha;
        if (mono) {
            *target++ =
                static_cast<uint8_t>((299 * red + 587 * green + 114 * blue + 127500) / 255000);
            continue;
        }
        for (const uint32_t part : {red, green, blue})
            *target++ = static_cast<uint8_t>((part + 127) / 255);
    }
}

/// Checks a picture's size before it is decoded: nothing of it is allocated when it is too large.
std::string takeImageSize(uint64_t width, uint64_t height, bool mono, size_t budget,
                          SDecodedImage &image)
{
    image.neededBytes = width * height * (mono ? 1 : 2);
    const std::string size = std::to_string(width) + " x " + std::to_string(height);
    if (width < 1 || height < 1 || width > MaxImageSide || height > MaxImageSide)
        return "a picture of " + size + " pixels is larger than " + std::to_string(MaxImageSide) +
               " x " + std::to_string(MaxImageSide);
    if (image.neededBytes > budget)
        return "a picture of " + size + " pixels does not fit into " + std::to_string(budget) +
               " bytes";
    image.width = static_cast<int>(width);
    image.height = static_cast<int>(height);
    return {};
}

} // namespace

CMediaTarget::CMediaTarget(bool mono, size_t budget, SDecodedImage &image)
    : m_mono(mono), m_image(image), m_budget(budget)
{
}

std::string CMediaTarget::begin(const SPictureHead &head)
{
    const std::string problem = takeImageSize(head.width, head.height, m_mono, m_budget, m_image);
    if (!problem.empty())
        return problem;
    m_samples.resize(sourceRow() * rowsToKeep());
    m_image.pixels.resize(static_cast<size_t>(m_image.neededBytes));
    return {};
}

void CMediaTarget::pack(const uint8_t *samples, int y)
{
    const CPixelPacker packer(m_mono);
    const auto row = static_cast<size_t>(m_image.width) * packer.bytesPerPixel();
    packer.packRow(samples, m_image.width, m_image.pixels.data() + static_cast<size_t>(y) * row);
}

std::string CJpegTarget::begin(const SPictureHead &head)
{
    return head.isCmyk ? "is made of inks (CMYK) and not of light" : CMediaTarget::begin(head);
}

void CPngTarget::packRows()
{
    for (int y = 0; y < m_image.height; ++y) {
        flattenRow(row(y), m_image.width, m_mono);
        pack(row(y), y);
    }
}

} // namespace kivemu
