#include "ImageFile.h"

#include "PictureFile.h"

#include <QFileInfo>

namespace kivtools {

static QImage fail(QString *error, const QString &path, const QString &text)
{
    *error = QStringLiteral("%1: %2").arg(path, text);
    return {};
}

QImage loadImage(const QString &path, const QByteArray &format, QString *error)
{
    const QFileInfo info(path);
    if (!info.exists())
        return fail(error, path, QStringLiteral("there is no such file"));
    if (!info.isFile())
        return fail(error, path, QStringLiteral("not a regular file"));
    QString reason;
    const QImage image = PictureFile::read(path, format, {}, &reason);
    return image.isNull() ? fail(error, path, reason) : image;
}

QImage loadArgbImage(const QString &path, QString *error)
{
    const QByteArray format = PictureFile::formatOf(path);
    if (format.isEmpty())
        return fail(error, path, QStringLiteral("not a .png, .jpg, .jpeg or .bmp file"));
    QImage image = loadImage(path, format, error);
    return std::move(image).convertToFormat(QImage::Format_ARGB32);
}

} // namespace kivtools
