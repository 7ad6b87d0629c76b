#include "ConvertedFiles.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace kivtools {

QString saveFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    // The count is compared because a full disk can shorten one big write without an error.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return QStringLiteral("%1: cannot be written: %2")
            .arg(path, file.error() == QFileDevice::NoError ? QStringLiteral("the disk is full")
                                                            : file.errorString());
    return {};
}

static QByteArray description(const SConvertedBitmap &bitmap)
{
    QJsonObject object{{QStringLiteral("format"), bitmap.format},
                       {QStringLiteral("width"), bitmap.width},
                       {QStringLiteral("height"), bitmap.height},
                       {QStringLiteral("stride"), bitmap.stride},
                       {QStringLiteral("bytes"), bitmap.pixels.size()}};
    if (!bitmap.palette.isEmpty())
        object.insert(QStringLiteral("paletteBytes"), bitmap.palette.size());
    return QJsonDocument(object).toJson();
}

QString saveConverted(const QString &baseName, const SConvertedBitmap &bitmap)
{
    // "./" keeps a name such as ":x" or "-x" a plain file of this folder.
    const QString name = QStringLiteral("./%1_%2").arg(baseName, bitmap.format);
    QString error;
    if (!bitmap.palette.isEmpty())
        error = saveFile(name + QStringLiteral(".lut"), bitmap.palette);
    if (error.isEmpty())
        error = saveFile(name + QStringLiteral(".json"), description(bitmap));
    if (error.isEmpty())
        error = saveFile(name + QStringLiteral(".raw"), bitmap.pixels);
    return error;
}

} // namespace kivtools
