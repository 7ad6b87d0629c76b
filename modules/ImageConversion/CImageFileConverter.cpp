#include "CImageFileConverter.h"

#include "CBitmapFormatTable.h"
#include "CFileCopies.h"
#include "CFileStamp.h"
#include "CFolder.h"
#include "CProjectModel.h"
#include "CToolRunner.h"
#include "ConvertedImageFacts.h"
#include "ConvertedImages.h"
#include "ImageNames.h"
#include "ImageTools.h"
#include "PictureFile.h"
#include "pictures/CAviReader.h"
#include "pictures/FileReading.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProgressDialog>

namespace {

bool isWithinLimit(const QSize &size)
{
    const int most = CImageFileConverter::MaxImageSide;
    return !size.isEmpty() && size.width() <= most && size.height() <= most;
}

/// A tool may open what lies in the place of its output: what would lead its bytes elsewhere, or
/// hold it up, goes first. A file that is there alone stays, to be replaced once there is a new
/// one.
bool clear(const CFolder &folder, const QStringList &names)
{
    bool isClear = true;
    for (const QString &each : names) {
        const CFolder::EEntry entry = folder.entry(each);
        const bool isInTheWay = entry == CFolder::EEntry::Link ||
                                entry == CFolder::EEntry::SharedFile ||
                                entry == CFolder::EEntry::Other;
        isClear = (!isInTheWay || folder.remove(each)) && isClear;
    }
    return isClear;
}

QStringList namesOf(const QStringList &files)
{
    QStringList names;
    for (const QString &each : files)
        names.append(QFileInfo(each).fileName());
    return names;
}

/// As a property keeps it, so that the project's folder can be moved.
QString storedFolder(const QString &folder)
{
    const CProjectModel *project = CProjectModel::current();
    return project ? project->placeText(folder) : folder;
}

} // namespace

CImageFileConverter::CImageFileConverter(QObject *parent) : QObject(parent)
{
}

void CImageFileConverter::setBox(QProgressDialog *box)
{
    m_box = box;
}

QString CImageFileConverter::convertedImagesFolder()
{
    const CProjectModel *project = CProjectModel::current();
    return project ? ConvertedImages::folder(*project) : QString();
}

QString CImageFileConverter::usualFormat(const QString &source, const QString &ofItsKind)
{
    return PictureFile::formatOf(source) == "jpg" ? QStringLiteral("RGB565") : ofItsKind;
}

bool CImageFileConverter::aviFrameSize(const QString &file, quint32 &width, quint32 &height)
{
    constexpr size_t HeaderBytes = size_t{1} << 20; // lies in the first few hundred
    std::vector<uint8_t> bytes;
    return kivemu::readFileStart(file.toLocal8Bit().toStdString(), HeaderBytes, bytes).empty() &&
           kivemu::CAviReader(bytes.data(), bytes.size()).readFrameSize(width, height);
}

bool CImageFileConverter::convert(const QString &source, const QString &formatName)
{
    return convert(source, CBitmapFormatTable::code(formatName));
}

bool CImageFileConverter::convert(const QString &source, int formatCode)
{
    return place(source, formatCode).has_value();
}

CImageFileConverter::Paths CImageFileConverter::place(const QString &source, int formatCode)
{
    const auto refuse = [this](const QString &reason) { return fail(reason), Paths(); };
    const QFileInfo info(source);
    if (!info.isFile())
        return refuse(
            (info.exists() ? tr("%1: this is not a regular file") : tr("%1: there is no such file"))
                .arg(source));
    if (info.size() > MaxSourceBytes)
        return refuse(tr("%1: the file is too big").arg(source));
    const QString folder = convertedImagesFolder();
    if (folder.isEmpty())
        return refuse(tr("no project is open"));
    const QFileInfo parts[] = {QFileInfo(folder), QFileInfo(QFileInfo(folder).path())};
    if (parts[0].exists() ? !parts[0].isDir() : parts[1].exists() && !parts[1].isDir())
        return refuse(tr("%1: the folder cannot be made").arg(folder));
    if (CConversionPaths(folder, info.fileName()).isRaw())
        return placeRaw(source);
    if (CBitmapFormatTable::path(formatCode) == CBitmapFormatTable::EPath::None)
        return refuse(tr("there is no such bitmap format"));
    // What cannot be told here, the tool decides.
    const QSize size =
        PictureFile::size(source, PictureFile::formatOf(source), PictureFile::ETurn::AsMarked);
    if (!size.isEmpty() && !isWithinLimit(size))
        return failAsTooLarge(source), Paths();

    QVector<CConversionPaths> candidates;
    for (int number = 1;; ++number) {
        const CConversionPaths paths(folder, ImageNames::numbered(info.fileName(), number));
        switch (ImageNames::stateOf(paths, formatCode, info.absoluteFilePath())) {
        case ImageNames::EState::Free:
            return run(info.absoluteFilePath(), paths, formatCode, candidates);
        case ImageNames::EState::Made:
            candidates.append(paths);
            break;
        case ImageNames::EState::Taken:
            break;
        }
    }
}

/// What the tool makes anew tells whether one of the candidates is the same: what lies there may be
/// of an earlier source, or of a program that replaced files.
CImageFileConverter::Paths CImageFileConverter::run(const QString &source,
                                                    const CConversionPaths &paths, int formatCode,
                                                    const QVector<CConversionPaths> &candidates)
{
    const QString place = paths.folder(formatCode);
    const bool isNew = ImageNames::filesOf(place, paths.baseName(formatCode)).isEmpty();
    CFileCopies copies(paths.projectFolder());
    copies.add(source, place + QLatin1Char('/') + paths.fileName());
    const QString reason = copies.copy();
    if (!reason.isEmpty())
        return fail(reason), Paths();
    const CFolder folder = CFolder::below(paths.projectFolder(), place);
    const QStringList outputs = namesOf(ImageNames::outputs(paths, formatCode));
    if (!folder.isOpen())
        return fail(folder.error()), Paths();
    if (!clear(folder, outputs + ImageTools::quantisedNames(paths)))
        return fail(tr("%1: cannot be written into").arg(place)), Paths();
    Paths result;
    if (runTools(paths, formatCode)) {
        const QStringList made = ImageNames::outputs(paths, formatCode);
        if (QFileInfo(made.at(1)).isFile() && describedSize(made.at(0)).isEmpty()) // cut short
            fail(tr("%1: was not written").arg(made.at(0)));
        else
            result = paths;
    }
    for (const CConversionPaths &each : candidates) {
        if (result && ImageNames::areOutputsEqual(each, paths, formatCode)) {
            ImageNames::completeSource(each, formatCode, source);
            result = each;
            break;
        }
    }
    if (!result || result->output(formatCode) != paths.output(formatCode)) {
        for (const QString &each : outputs)
            folder.remove(each);
        if (isNew)
            folder.remove(ImageTools::quantisedNames(paths).first());
        copies.takeBack();
    }
    return result;
}

CImageFileConverter::Paths CImageFileConverter::placeRaw(const QString &source)
{
    const QFileInfo info(source);
    const QSize size = describedSize(source);
    if (!size.isEmpty() && !isWithinLimit(size))
        return failAsTooLarge(source), Paths();
    for (int number = 1;; ++number) {
        const CConversionPaths paths(convertedImagesFolder(),
                                     ImageNames::numbered(info.fileName(), number));
        const QStringList places = ImageNames::outputs(paths, CBitmapFormatTable::UnknownCode);
        CFileCopies copies(paths.projectFolder());
        // What the image tools write beside a raw file goes along, for its size and palette.
        for (const QString &place : places)
            copies.add(info.absolutePath() + QLatin1Char('/') + info.completeBaseName() +
                           QLatin1Char('.') + QFileInfo(place).suffix(),
                       place);
        if (copies.meetOthers())
            continue;
        const QString reason = copies.copy();
        if (!reason.isEmpty())
            return fail(reason), Paths();
        if (size.isEmpty())
            Q_EMIT warned(tr("%1: nothing is shown, because its size is not known. The .json file "
                             "that the image tools write beside it tells the size.")
                              .arg(source));
        return paths;
    }
}

bool CImageFileConverter::runTools(const CConversionPaths &paths, int formatCode)
{
    const SToolCall call = ImageTools::conversion(paths, formatCode, QDir::currentPath());
    if (call.program.isEmpty())
        return false;
    if (ImageTools::needsQuantiser(formatCode) && !quantise(paths, formatCode))
        return false;
    return runTool(call, paths.output(formatCode));
}

bool CImageFileConverter::quantise(const CConversionPaths &paths, int formatCode)
{
    const SToolCall call = ImageTools::quantiser(paths, formatCode, QDir::currentPath());
    const QString &folder = call.workingFolder;
    const QStringList names = ImageTools::quantisedNames(paths);
    QVector<CFileStamp> candidates;
    for (const QString &each : names)
        candidates.append(CFileStamp(folder + QLatin1Char('/') + each));
    const QString error = CToolRunner(CToolRunner::DefaultTimeLimit, m_box).run(call);
    if (!error.isEmpty())
        return fail(error);
    for (int i = 0; i < names.size(); ++i) {
        if (candidates.at(i).isRewritten())
            return CFolder::below(paths.projectFolder(), folder)
                       .rename(names.at(i), names.first()) ||
                   fail(tr("%1: cannot be renamed").arg(candidates.at(i).path()));
    }
    return fail(tr("%1: was not written").arg(paths.quantised()));
}

bool CImageFileConverter::runTool(const SToolCall &call, const QString &output)
{
    const CFileStamp stamp(output);
    const QString error = CToolRunner(CToolRunner::DefaultTimeLimit, m_box).run(call);
    if (!error.isEmpty())
        return fail(error);
    return stamp.isRewritten() || fail(tr("%1: was not written").arg(output));
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
    const int code = CBitmapFormatTable::code(formatName);
    const Paths placed = place(source, code);
    if (!placed)
        return std::nullopt;
    const CConversionPaths &paths = *placed;
    SConvertedImage image;
    image.path = QFileInfo(paths.output(code)).absoluteFilePath();
    const QSize size = describedSize(image.path);
    if (!isWithinLimit(size) && !paths.isRaw()) {
        fail(tr("%1: its size cannot be read").arg(image.path));
        return std::nullopt;
    }
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
        size = PictureFile::size(file, PictureFile::formatOf(file), PictureFile::ETurn::AsStored);
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
