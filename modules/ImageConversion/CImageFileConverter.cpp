#include "CImageFileConverter.h"

#include "CAviReader.h"
#include "CBitmapFormatTable.h"
#include "CConversionPaths.h"
#include "CFileStamp.h"
#include "CProjectModel.h"
#include "CToolRunner.h"
#include "ConvertedImageFacts.h"
#include "FileNames.h"
#include "PropertyKey.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QString GeneralTool = QStringLiteral("/bmpconv/bmpconv.exe");
const QString Quantiser = QStringLiteral("/Palette/pngquant.exe");
const QString PaletteSplitter = QStringLiteral("/Palette/palsplit.exe");
const QString Dxt1Tool = QStringLiteral("/DXT1/dxtpack.exe");

QString toolPath(const QString &tool)
{
    return QDir::currentPath() + QStringLiteral("/Image conversion tool for KIV") + tool;
}

/// A file name that no tool takes for an option (or Qt, at ":", for a resource).
QString asArgument(const QString &fileName)
{
    const bool isOdd =
        fileName.startsWith(QLatin1Char('-')) || fileName.startsWith(QLatin1Char(':'));
    return isOdd ? QStringLiteral("./") + fileName : fileName;
}

bool isWithinLimit(const QSize &size)
{
    const int most = CImageFileConverter::MaxImageSide;
    return !size.isEmpty() && size.width() <= most && size.height() <= most;
}

/// Also when two names lead to it: removing the one would then remove the other.
bool isSameFile(const QString &one, const QString &other)
{
    const QString canonical = QFileInfo(one).canonicalFilePath();
    return QFileInfo(one).absoluteFilePath() == QFileInfo(other).absoluteFilePath() ||
           (!canonical.isEmpty() && canonical == QFileInfo(other).canonicalFilePath());
}

/// As a property keeps it, so that the project's folder can be moved.
QString storedFolder(const QString &folder)
{
    const CProjectModel *project = CProjectModel::current();
    return project ? project->storedFolder(folder) : folder;
}

} // namespace

CImageFileConverter::CImageFileConverter(QObject *parent) : QObject(parent)
{
}

QString CImageFileConverter::convertedImagesFolder()
{
    const CProjectModel *project = CProjectModel::current();
    if (!project)
        return {};
    const QString workingFolder = project->workingDirectory();
    return (workingFolder.isEmpty() ? QDir::currentPath() : workingFolder) + QLatin1Char('/') +
           FileNames::convertedImages(project->propertyText(PropertyKey::ProjectName));
}

bool CImageFileConverter::aviFrameSize(const QString &file, quint32 &width, quint32 &height)
{
    return CAviReader::frameSize(file, width, height);
}

bool CImageFileConverter::convert(const QString &source, const QString &formatName)
{
    return convert(source, CBitmapFormatTable::code(formatName));
}

bool CImageFileConverter::convert(const QString &source, int formatCode)
{
    const QFileInfo info(source);
    if (!info.isFile())
        return fail(tr("%1: there is no such file").arg(source));
    if (info.size() > MaxSourceBytes)
        return fail(tr("%1: the file is too big").arg(source));
    const QString folder = convertedImagesFolder();
    if (folder.isEmpty())
        return fail(tr("no project is open"));

    const CConversionPaths paths(folder, info.absoluteFilePath());
    if (paths.isRaw())
        return convertRaw(source, paths);
    const QSize size =
        imageFileSize(source, ETurn::AsMarked); // what cannot be told here, the tool decides
    if (!size.isEmpty() && !isWithinLimit(size))
        return failAsTooLarge(source);
    switch (CBitmapFormatTable::path(formatCode)) {
    case CBitmapFormatTable::EPath::General:
        return convertGeneral(source, formatCode, paths);
    case CBitmapFormatTable::EPath::Palette:
        return convertPaletted(source, formatCode, paths);
    case CBitmapFormatTable::EPath::Dxt1:
        return convertDxt1(source, formatCode, paths);
    case CBitmapFormatTable::EPath::None:
        break;
    }
    return fail(tr("there is no such bitmap format"));
}

bool CImageFileConverter::convertRaw(const QString &source, const CConversionPaths &paths)
{
    const QSize size = describedSize(source);
    if (!size.isEmpty() && !isWithinLimit(size))
        return failAsTooLarge(source);
    const QString folder = paths.folder(CBitmapFormatTable::UnknownCode);
    if (!placeSource(source, folder))
        return false;
    // What the image tools write beside a raw file goes along, so that size and palette are known.
    const QFileInfo info(source);
    for (const QString &suffix : {QStringLiteral(".json"), QStringLiteral(".lut")}) {
        const QString name = info.completeBaseName() + suffix;
        const QString companion = info.absolutePath() + QLatin1Char('/') + name;
        if (QFileInfo(companion).isFile() && !copyFile(companion, folder + QLatin1Char('/') + name))
            return false;
    }
    if (size.isEmpty())
        Q_EMIT warned(tr("%1: nothing is shown, because its size is not known. The .json file that "
                         "the image tools write beside it tells the size.")
                          .arg(source));
    return true;
}

bool CImageFileConverter::convertGeneral(const QString &source, int formatCode,
                                         const CConversionPaths &paths)
{
    const QString folder = paths.folder(formatCode);
    const QStringList arguments{QStringLiteral("-i"), asArgument(paths.fileName()),
                                QStringLiteral("-f"), QString::number(formatCode)};
    return placeSource(source, folder) &&
           runTool({toolPath(GeneralTool), arguments, folder}, paths.output(formatCode));
}

bool CImageFileConverter::convertDxt1(const QString &source, int formatCode,
                                      const CConversionPaths &paths)
{
    const QString folder = paths.folder(formatCode);
    const QStringList arguments{QStringLiteral("-i"), asArgument(paths.fileName())};
    return placeSource(source, folder) &&
           runTool({toolPath(Dxt1Tool), arguments, folder}, paths.output(formatCode));
}

bool CImageFileConverter::convertPaletted(const QString &source, int formatCode,
                                          const CConversionPaths &paths)
{
    const QString folder = paths.folder(formatCode);
    const QString splitter = QLatin1Char('"') + toolPath(PaletteSplitter) + QLatin1Char('"');
    const QStringList arguments{QStringLiteral("-i"),
                                asArgument(QFileInfo(paths.quantised()).fileName()),
                                QStringLiteral("-f"), CBitmapFormatTable::paletteKind(formatCode)};
    return placeSource(source, folder) && quantise(folder, paths) &&
           runTool({splitter, arguments, folder}, paths.output(formatCode));
}

bool CImageFileConverter::quantise(const QString &folder, const CConversionPaths &paths)
{
    const QString wanted = paths.quantised();
    // The quantiser always writes PNG, and keeps all of a name that has more than one dot.
    const QString start = folder + QLatin1Char('/');
    const QString end = QStringLiteral("-fs8.png");
    const CFileStamp candidates[] = {
        CFileStamp(wanted),
        CFileStamp(start + QFileInfo(paths.fileName()).completeBaseName() + end),
        CFileStamp(start + QFileInfo(paths.fileName()).baseName() + end)};

    const QString error = CToolRunner().run(
        {toolPath(Quantiser), {QStringLiteral("-f"), asArgument(paths.fileName())}, folder});
    if (!error.isEmpty())
        return fail(error);
    for (const CFileStamp &candidate : candidates) {
        if (!candidate.isRewritten())
            continue;
        if (candidate.path() == wanted)
            return true;
        QFile::remove(wanted);
        return QFile::rename(candidate.path(), wanted) ||
               fail(tr("%1: cannot be renamed").arg(candidate.path()));
    }
    return fail(tr("%1: was not written").arg(wanted));
}

bool CImageFileConverter::runTool(const SToolCall &call, const QString &output)
{
    const CFileStamp stamp(output);
    const QString error = CToolRunner().run(call);
    if (!error.isEmpty())
        return fail(error);
    return stamp.isRewritten() || fail(tr("%1: was not written").arg(output));
}

bool CImageFileConverter::placeSource(const QString &source, const QString &folder)
{
    if (!QDir().mkpath(folder))
        return fail(tr("%1: the folder cannot be made").arg(folder));
    return copyFile(source, folder + QLatin1Char('/') + QFileInfo(source).fileName());
}

bool CImageFileConverter::copyFile(const QString &source, const QString &target)
{
    if (isSameFile(source, target))
        return true;
    if (QFileInfo(target).isFile() || QFileInfo(target).isSymLink())
        QFile::remove(target);
    QFile file(source);
    return file.copy(target) ||
           fail(tr("%1: cannot be copied to %2: %3").arg(source, target, file.errorString()));
}

bool CImageFileConverter::failAsTooLarge(const QString &source)
{
    return fail(
        tr("%1: more than %2 pixels wide or high").arg(source, QString::number(MaxImageSide)));
}

bool CImageFileConverter::fail(const QString &reason)
{
    Q_EMIT failed(reason);
    return false;
}

std::optional<SConvertedImage> CImageFileConverter::convertedImage(const QString &source,
                                                                   const QString &formatName)
{
    const QString folder = convertedImagesFolder();
    const int code = CBitmapFormatTable::code(formatName);
    const CConversionPaths paths(folder, source);
    if (folder.isEmpty() || (code == CBitmapFormatTable::UnknownCode && !paths.isRaw()))
        return std::nullopt;

    SConvertedImage image;
    image.path = QFileInfo(paths.output(code)).absoluteFilePath();
    if (!QFileInfo(image.path).isFile())
        return std::nullopt;
    const QSize size = describedSize(image.path);
    if (!isWithinLimit(size) && !paths.isRaw())
        return std::nullopt;
    image.basename = paths.baseName(code);
    image.suffix = paths.suffix();
    image.bfolder = storedFolder(QFileInfo(image.path).path());
    image.format = paths.isRaw() ? QStringLiteral("None") : formatName;
    if (isWithinLimit(size)) {
        image.bwidth = size.width();
        image.bheight = size.height();
    }
    return image;
}

std::optional<SConvertedImage> CImageFileConverter::mediaImage(const QString &file)
{
    const QFileInfo info(file);
    SConvertedImage image;
    image.path = info.absoluteFilePath();
    image.basename = info.completeBaseName();
    image.suffix = info.suffix();
    image.bfolder = storedFolder(info.absolutePath());
    image.format = QStringLiteral("RGB565");
    image.video = image.suffix.compare(QLatin1String("avi"), Qt::CaseInsensitive) == 0;

    QSize size;
    quint32 width = 0;
    quint32 height = 0;
    if (!image.video)
        size = imageFileSize(file, ETurn::AsStored);
    else if (aviFrameSize(file, width, height))
        size = {static_cast<int>(qMin<quint32>(width, MaxImageSide + 1)),
                static_cast<int>(qMin<quint32>(height, MaxImageSide + 1))};
    if (!isWithinLimit(size)) {
        if (size.isEmpty())
            fail(tr("%1: its size cannot be read").arg(file));
        else
            failAsTooLarge(file);
        return std::nullopt;
    }
    image.bwidth = size.width();
    image.bheight = size.height();
    return image;
}
