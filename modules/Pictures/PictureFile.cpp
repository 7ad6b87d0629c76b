#include "PictureFile.h"

#include "CImageTarget.h"
#include "pictures/BitmapHead.h"
#include "pictures/FileReading.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

using kivemu::CFileSource;

namespace {

constexpr qint64 MostBeforePixels = 1 << 20; // bytes of a bitmap's head and palette
constexpr qint64 MostPerPixel = 4;           // bytes of a bitmap, also when rows are filled up

std::string nativePath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

std::string readRows(const QByteArray &format, kivemu::IByteSource &source, CImageTarget &target)
{
    if (format == "png")
        return readPng(source, kivemu::EPngRows::Indices, target);
    if (format == "jpg")
        return readJpeg(source, kivemu::EJpegRows::Colours, target);
    return "is of an unknown format";
}

QImage::Format rowFormat(const QByteArray &format)
{
    return format == "png" ? QImage::Format_ARGB32 : QImage::Format_RGB888;
}

/// Gives the reason why there is no size.
std::string bitmapSize(const QString &path, CImageTarget &target, qint64 *dataStart = nullptr)
{
    std::vector<uint8_t> bytes;
    const std::string problem =
        kivemu::readFileStart(nativePath(path), kivemu::BitmapHeadBytes, bytes);
    if (!problem.empty())
        return problem;
    kivemu::SBitmapHead bitmap;
    if (!kivemu::readBitmapHead(bytes.data(), bytes.size(), bitmap))
        return "cannot be read as bmp image";
    if (dataStart)
        *dataStart = bitmap.dataStart;
    kivemu::SPictureHead head;
    head.width = bitmap.width;
    head.height = bitmap.height;
    return target.begin(head);
}

QImage readBitmap(const QString &path, CImageTarget &target, std::string *problem)
{
    qint64 dataStart = 0;
    *problem = bitmapSize(path, target, &dataStart);
    if (!problem->empty())
        return {};
    if (dataStart > MostBeforePixels)
        return *problem = "its pixels begin too late", QImage();
    const QSize size = target.size();
    target.turnedImage(); // Qt makes its own
    const qint64 most = dataStart + MostPerPixel * size.width() * size.height() + MostPerPixel;
    std::vector<uint8_t> bytes;
    *problem = kivemu::readFileStart(nativePath(path), static_cast<size_t>(most), bytes);
    const QByteArray view = QByteArray::fromRawData(reinterpret_cast<const char *>(bytes.data()),
                                                    static_cast<int>(bytes.size()));
    QBuffer buffer;
    buffer.setData(view);
    QImageReader reader(&buffer, "bmp");
    reader.setAutoDetectImageFormat(false);
    if (problem->empty() && reader.size() != size) // the file was replaced in between
        *problem = "cannot be read as bmp image";
    if (!problem->empty())
        return {};
    const QImage image = reader.read();
    if (image.isNull())
        *problem = reader.errorString().toStdString();
    return image;
}

} // namespace

QByteArray PictureFile::formatOf(const QString &path)
{
    const QByteArray suffix = QFileInfo(path).suffix().toLower().toUtf8();
    if (suffix == "jpeg")
        return "jpg";
    return suffix == "png" || suffix == "jpg" || suffix == "bmp" ? suffix : QByteArray();
}

QImage PictureFile::read(const QString &path, const QByteArray &format, const SLimits &limits,
                         QString *error)
{
    std::string problem;
    QImage image;
    CImageTarget target(CImageTarget::EWanted::Image, rowFormat(format), limits.side);
    CFileSource file;
    problem = file.open(nativePath(path));
    if (problem.empty() && file.size() > static_cast<uint64_t>(limits.bytes))
        problem = "the file is too big";
    if (problem.empty() && format == "bmp") {
        image = readBitmap(path, target, &problem);
    } else if (problem.empty()) {
        problem = readRows(format, file, target);
        if (problem.empty())
            image = target.turnedImage();
    }
    *error = QString::fromStdString(problem);
    return image;
}

QSize PictureFile::size(const QString &path, const QByteArray &format, ETurn turn)
{
    CImageTarget target(CImageTarget::EWanted::Size, rowFormat(format), 0);
    CFileSource file;
    if (format == "bmp")
        bitmapSize(path, target);
    else if (file.open(nativePath(path)).empty())
        readRows(format, file, target);
    const bool isTurned = turn == ETurn::AsMarked && target.isTurnedAside();
    return isTurned ? target.size().transposed() : target.size();
}
