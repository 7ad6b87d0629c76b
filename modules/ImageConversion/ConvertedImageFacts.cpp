#include "ConvertedImageFacts.h"

#include "RegularFile.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

static constexpr qint64 MaxDescriptionBytes = 4096;

QSize describedSize(const QString &rawFile)
{
    const QFileInfo raw(rawFile);
    QFile file(raw.path() + QLatin1Char('/') + raw.completeBaseName() + QStringLiteral(".json"));
    if (!openRegularFile(file, file.fileName()))
        return {};
    const QJsonObject object = QJsonDocument::fromJson(file.read(MaxDescriptionBytes)).object();
    if (object.value(QStringLiteral("bytes")).toDouble(-1) != static_cast<double>(raw.size()))
        return {};
    return {object.value(QStringLiteral("width")).toInt(),
            object.value(QStringLiteral("height")).toInt()};
}
