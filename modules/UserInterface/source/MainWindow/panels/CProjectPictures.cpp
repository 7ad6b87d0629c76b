#include "CProjectPictures.h"

#include "BackgroundWork.h"
#include "CFileWriter.h"
#include "PictureFile.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QPixmap>
#include <QStandardPaths>

namespace {
constexpr PictureFile::SLimits Limits = {1024, 1 << 20};
const QString Pictures = QStringLiteral("*.png");

void write(const QString &path, const QImage &frame)
{
    const QDir folder = QFileInfo(path).dir();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const QImage small =
        frame.scaled(CProjectPictures::Size * 2, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (!small.save(&buffer, "png") || !folder.mkpath(QStringLiteral(".")) ||
        !CFileWriter::write(path, bytes).isEmpty())
        return; // it is only a picture
    const QFileInfoList all = folder.entryInfoList({Pictures}, QDir::Files, QDir::Time);
    for (const QFileInfo &each : all.mid(CProjectPictures::MaxFiles))
        QFile::remove(each.filePath());
}
} // namespace

QString CProjectPictures::pathOf(const QString &file)
{
    const QByteArray name =
        QCryptographicHash::hash(file.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/kiv-panel-composer/projects/") + QString::fromLatin1(name) +
           QStringLiteral(".png");
}

void CProjectPictures::keep(const QString &file, const QPixmap &frame)
{
    if (file.isEmpty() || frame.isNull())
        return;
    BackgroundWork::run(
        this,
        [path = pathOf(file), image = frame.toImage()] {
            write(path, image);
            return true;
        },
        [this](bool) { Q_EMIT kept(); });
}

QImage CProjectPictures::read(const QString &file)
{
    QString error; // then there is none
    return PictureFile::read(pathOf(file), "png", Limits, &error);
}
