#include "CImageTarget.h"

#include <QTransform>

#include <algorithm>

static constexpr uint32_t MostTold = 1'000'000; // pixels; products of sides fit anywhere

CImageTarget::CImageTarget(EWanted wanted, QImage::Format format, int maxSide)
    : m_wanted(wanted), m_format(format), m_maxSide(maxSide)
{
}

std::string CImageTarget::begin(const kivemu::SPictureHead &head)
{
    if (head.width == 0 || head.height == 0)
        return "is empty";
    m_size = {static_cast<int>(qMin(head.width, MostTold)),
              static_cast<int>(qMin(head.height, MostTold))};
    m_orientation = head.orientation;
    if (m_wanted == EWanted::Size)
        return "is not wanted";
    if (m_size.width() > m_maxSide || m_size.height() > m_maxSide) {
        const std::string most = std::to_string(m_maxSide);
        return std::to_string(head.width) + " x " + std::to_string(head.height) +
               " pixels are more than " + most + " x " + most;
    }
    m_image = QImage(m_size, head.palette.empty() ? m_format : QImage::Format_Indexed8);
    if (m_image.isNull())
        return "there is not enough memory";
    if (!head.palette.empty())
        m_image.setColorTable(QVector<QRgb>(head.palette.begin(), head.palette.end()));
    m_image.fill(0); // what a damaged file leaves open
    m_bits = m_image.bits();
    m_bytesPerLine = m_image.bytesPerLine();
    return {};
}

/// What lies beyond the palette becomes its first colour.
static void limitIndices(QImage &image)
{
    for (int y = 0; image.colorCount() < 256 && y < image.height(); ++y)
        std::replace_if(
            image.scanLine(y), image.scanLine(y) + image.width(),
            [&image](uchar index) { return index >= image.colorCount(); }, uchar(0));
}

QImage CImageTarget::turnedImage()
{
    if (m_image.format() == QImage::Format_Indexed8)
        limitIndices(m_image);
    const bool isMirrored = m_orientation == 2 || m_orientation == 3 || m_orientation == 7;
    const bool isUpsideDown = m_orientation == 3 || m_orientation == 4 || m_orientation == 5;
    if (isMirrored || isUpsideDown)
        m_image = std::move(m_image).mirrored(isMirrored, isUpsideDown);
    const int angle = m_orientation == 8 ? 270 : isTurnedAside() ? 90 : 0;
    if (angle != 0)
        m_image = m_image.transformed(QTransform().rotate(angle));
    return std::move(m_image);
}
