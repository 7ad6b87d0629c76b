#pragma once

#include "pictures/PictureReading.h"

#include <QImage>

/// Takes a picture's rows as a QImage, or only what is known before.
class CImageTarget final : public kivemu::IPictureTarget
{
public:
    enum class EWanted { Size, Image };

    /// `format` is that of the rows, when they are not indices.
    CImageTarget(EWanted wanted, QImage::Format format, int maxSide);

    std::string begin(const kivemu::SPictureHead &head) override;
    uint8_t *row(int y) noexcept override { return m_bits + y * m_bytesPerLine; }

    /// As it is stored, limited to 1,000,000; invalid when the picture has no size.
    QSize size() const { return m_size; }
    bool isTurnedAside() const { return m_orientation >= 5; } ///< width and height change places
    QImage turnedImage();                                     ///< hands the image out

private:
    const EWanted m_wanted;
    const QImage::Format m_format;
    const int m_maxSide;
    QSize m_size;
    int m_orientation = 1;
    QImage m_image;
    uint8_t *m_bits = nullptr;
    qptrdiff m_bytesPerLine = 0;
};
