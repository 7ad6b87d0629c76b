#include "CScreenshotWriter.h"

#include "CFileWriter.h"
#include "FileNames.h"

#include <QBuffer>
#include <QFile>

#include <utility>

CScreenshotWriter::CScreenshotWriter(const QString &folder) : m_folder(folder)
{
}

QString CScreenshotWriter::write(const QString &screenName, const QImage &picture)
{
    const QString path = freePath(screenName);
    const QString reason = CFileWriter::write(path, toPng(picture));
    if (reason.isEmpty())
        return path;
    m_skipped.append(reason);
    return {};
}

QString CScreenshotWriter::freePath(const QString &screenName) const
{
    const QString start = m_folder + QLatin1String("//");
    int tries = 0;
    const auto isTaken = [&](const QString &fileName) {
        return tries++ < MaxNumber && QFile::exists(start + fileName);
    };
    return start + FileNames::unused(screenName, QStringLiteral(".png"), isTaken);
}

QByteArray CScreenshotWriter::toPng(QImage picture)
{
    QImage opaque = std::move(picture).convertToFormat(QImage::Format_RGB32);
    // A new image has the resolution of the display, which would get into the file.
    constexpr int dotsPerMeter = 3780; // 96 dpi
    opaque.setDotsPerMeterX(dotsPerMeter);
    opaque.setDotsPerMeterY(dotsPerMeter);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    opaque.save(&buffer, "PNG");
    return png;
}
