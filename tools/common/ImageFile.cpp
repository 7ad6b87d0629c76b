#include "ImageFile.h"

#include <QColorSpace>
#include <QFileInfo>
#include <QImageReader>

namespace kivtools {

static QImage fail(QString *error, const QString &path, const QString &text)
{
    *error = QStringLiteral("%1: %2").arg(path, text);
    return {};
}

QByteArray imageFormatOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
        return "jpg";
    if (suffix == QLatin1String("png") || suffix == QLatin1String("bmp"))
        return suffix.toLatin1();
    return {};
}

QImage loadImage(const QString &path, const QByteArray &format, QString *error)
{
    const QFileInfo info(path);
    if (!info.exists())
        return fail(error, path, QStringLiteral("there is no such file"));
    if (!info.isFile()) // a pipe or a device might never end
        return fail(error, path, QStringLiteral("not a regular file"));
    if (info.size() > MaxImageFileBytes)
        return fail(error, path, QStringLiteral("the file is too big"));

    QImageReader reader(path, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty())
        return fail(error, path,
                    QStringLiteral("cannot be read as %1 image").arg(QString::fromLatin1(format)));
    if (size.width() > MaxImageSide || size.height() > MaxImageSide)
        return fail(error, path,
                    QStringLiteral("%1 x %2 pixels are more than %3 x %3")
                        .arg(size.width())
                        .arg(size.height())
                        .arg(MaxImageSide));
    QImage image = reader.read();
    image.setColorSpace(QColorSpace()); // a quantiser that knows profiles would apply it
    return image.isNull() ? fail(error, path, reader.errorString()) : image;
}

QImage loadArgbImage(const QString &path, QString *error)
{
    const QByteArray format = imageFormatOf(path);
    if (format.isEmpty())
        return fail(error, path, QStringLiteral("not a .png, .jpg, .jpeg or .bmp file"));
    const QImage image = loadImage(path, format, error);
    return image.isNull() ? image : image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace kivtools
