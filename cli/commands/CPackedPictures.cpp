#include "CPackedPictures.h"

#include <cstring>

void CPackedPictures::add(const CItemModel *screen, const QImage &picture)
{
    const QImage rows = picture.convertToFormat(QImage::Format_RGB32); // without gaps
    constexpr int Fastest = 1;
    m_pictures.insert(
        screen,
        {rows.size(), qCompress(rows.constBits(), static_cast<int>(rows.sizeInBytes()), Fastest)});
}

QImage CPackedPictures::take(const CItemModel *screen)
{
    const SPacked packed = m_pictures.take(screen);
    const QByteArray rows = qUncompress(packed.bytes);
    QImage picture(packed.size, QImage::Format_RGB32);
    if (picture.sizeInBytes() != rows.size())
        return {};
    if (!picture.isNull())
        std::memcpy(picture.bits(), rows.constData(), static_cast<size_t>(rows.size()));
    return picture;
}
