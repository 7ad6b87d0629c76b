#include "CImageFileLook.h"

#include "CFileCopies.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "ConvertedImages.h"
#include "ImageNames.h"
#include "ItemTree.h"
#include "PictureFile.h"
#include "PropertyKey.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace {

/// The source as it was converted: the converter leaves it beside what it makes. Empty when it is
/// not there.
QString copyOf(const SImageFiles::SImage &image)
{
    const QString usual =
        image.folder + QLatin1Char('/') + image.base + QLatin1Char('.') + image.suffix;
    return QFileInfo(usual).isFile() ? usual : ImageNames::sourceIn(image.folder, image.base);
}

/// Files of the same picture may differ in what they say beside it, and in how they are packed.
bool arePicturesEqual(const QString &one, const QString &other)
{
    const auto read = [](const QString &file) {
        QString reason;
        return PictureFile::read(file, PictureFile::formatOf(file), {}, &reason)
            .convertToFormat(QImage::Format_ARGB32);
    };
    const QImage picture = read(one);
    return !picture.isNull() && picture == read(other);
}

QStringList unusedIn(const SImageFiles &files)
{
    if (files.folder.isEmpty())
        return {};
    QSet<QString> used;
    for (const QString &file : files.used)
        used.insert(QFileInfo(file).canonicalFilePath());
    QStringList unused;
    QStringList folders = {files.folder};
    for (const QString &each : QDir(files.folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        folders.append(files.folder + QLatin1Char('/') + each);
    for (const QString &folder : qAsConst(folders)) {
        QDirIterator found(folder, {QStringLiteral("*.raw")}, QDir::Files);
        while (found.hasNext())
            if (!used.contains(QFileInfo(found.next()).canonicalFilePath()))
                unused.append(found.filePath());
    }
    unused.sort();
    return unused;
}

} // namespace

QString SImageFiles::sourceOf(const CItemModel &item)
{
    const QString stored = item.propertyText(PropertyKey::FileName);
    if (stored.isEmpty() || !item.project() || item.itemTypeName() == TypeName::Media ||
        item.propertyText(PropertyKey::BaseName).isEmpty())
        return {};
    const QString file = item.project()->absoluteFolder(stored);
    return QDir::isAbsolutePath(file) ? file : QString();
}

SImageFiles SImageFiles::of(const CProjectModel &project)
{
    SImageFiles files;
    if (!project.workingDirectory().isEmpty())
        files.folder = ConvertedImages::folder(project);
    QSet<QString> known;
    forEachItem(project, [&](const CItemModel &item) {
        const QString shown = ConvertedImages::fileOf(item);
        if (shown.isEmpty())
            return;
        files.used.insert(shown);
        const QString source = sourceOf(item);
        SImage image{&item,
                     source,
                     QFileInfo(shown).path(),
                     item.propertyText(PropertyKey::BaseName),
                     item.propertyText(PropertyKey::Suffix),
                     {item.propertyValue(PropertyKey::BitmapWidth).toInt(),
                      item.propertyValue(PropertyKey::BitmapHeight).toInt()}};
        if (source.isEmpty() || known.contains(image.key()))
            return;
        known.insert(image.key());
        files.images.append(image);
    });
    return files;
}

bool CImageFileLook::isChanged(const SImageFiles::SImage &image, const QString &copy) const
{
    if (!copy.isEmpty())
        return !CFileCopies::areEqual(image.source, copy) && !arePicturesEqual(image.source, copy);
    // Nothing is left to compare with but the size.
    const QSize size = PictureFile::size(image.source, PictureFile::formatOf(image.source),
                                         PictureFile::ETurn::AsMarked);
    return !size.isEmpty() && !image.size.isEmpty() && size != image.size;
}

SImageFiles::SState CImageFileLook::look(const SImageFiles &files)
{
    SImageFiles::SState state;
    QHash<QString, SKnown> known;
    for (const SImageFiles::SImage &image : files.images) {
        if (!QFileInfo(image.source).isFile())
            continue;
        const QString copy = copyOf(image);
        const QString key = QStringLiteral("%1\n%2\n%3x%4")
                                .arg(image.key(), copy)
                                .arg(image.size.width())
                                .arg(image.size.height());
        const auto before = m_known.constFind(key);
        const bool isKnown = before != m_known.constEnd() && !before->source.isRewritten() &&
                             !before->copy.isRewritten();
        SKnown now = isKnown ? *before : SKnown{CFileStamp(image.source), CFileStamp(copy), false};
        if (!isKnown)
            now.isChanged = isChanged(image, copy);
        if (now.isChanged)
            state.changed.insert(image.key());
        known.insert(key, now);
    }
    m_known = known;
    state.unused = unusedIn(files);
    return state;
}
