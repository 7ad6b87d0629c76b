#include "ConvertedFiles.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace kivtools {

/// Whether all is with the system. A disk that gets full takes a part of the bytes first, without
/// an error; a buffer would hide that until the file has its name.
static bool writeAll(QSaveFile &file, const QByteArray &bytes)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 step = file.write(bytes.constData() + written, bytes.size() - written);
        if (step <= 0)
            return false;
        written += step;
    }
    return true;
}

QString saveFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(file, bytes) ||
        !file.commit())
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
