#include "ConvertedImageFacts.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QJsonDocument>
#include <QJsonObject>

static constexpr qint64 MaxDescriptionBytes = 4096;

QSize describedSize(const QString &rawFile)
{
    const QFileInfo raw(rawFile);
    QFile file(raw.path() + QLatin1Char('/') + raw.completeBaseName() + QStringLiteral(".json"));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject object = QJsonDocument::fromJson(file.read(MaxDescriptionBytes)).object();
    if (object.value(QStringLiteral("bytes")).toDouble(-1) != static_cast<double>(raw.size()))
        return {};
    return {object.value(QStringLiteral("width")).toInt(),
            object.value(QStringLiteral("height")).toInt()};
}

QSize imageFileSize(const QString &file, ETurn turn)
{
    const QFileInfo info(file);
    if (!info.isFile()) // a pipe or a device could keep the editor waiting for ever
        return {};
    QByteArray format = info.suffix().toLower().toLatin1();
    if (format == "jpeg")
        format = "jpg";
    if (format != "png" && format != "jpg" && format != "bmp")
        return {};
    QImageReader reader(file, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    const bool isTurned = turn == ETurn::AsMarked &&
                          reader.transformation() & QImageIOHandler::TransformationRotate90;
    return isTurned ? size.transposed() : size;
}
