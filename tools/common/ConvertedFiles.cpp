#include "ConvertedFiles.h"

#include "CFileWriter.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace kivtools {

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
        error = CFileWriter::write(name + QStringLiteral(".lut"), bitmap.palette);
    if (error.isEmpty())
        error = CFileWriter::write(name + QStringLiteral(".json"), description(bitmap));
    if (error.isEmpty())
        error = CFileWriter::write(name + QStringLiteral(".raw"), bitmap.pixels);
    return error;
}

} // namespace kivtools
