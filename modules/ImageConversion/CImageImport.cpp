#include "CImageImport.h"

#include "CBitmapFormatTable.h"
#include "CConversionPaths.h"
#include "CImageFileConverter.h"
#include "CProjectModel.h"
#include "ConvertedImages.h"
#include "FileNames.h"
#include "ImageNames.h"
#include "PropertyKey.h"
#include "SItemElement.h"

#include <QDir>
#include <QFileInfo>
#include <QVector>

#include <algorithm>

namespace {
bool mayBeBrought(const QFileInfo &file)
{
    return file.isFile() && FileNames::isImage(file.fileName());
}
} // namespace

/// What belongs to one image: where it lies, and what its name has behind the base name.
struct CImageImport::SFiles
{
    struct SFile
    {
        QString path;
        QString ending;
    };
    QVector<SFile> all;   ///< the source first, so that nothing lies there without it
    QString sourceEnding; ///< of the one that the others were made of; empty when there is none
};

CImageImport::CImageImport(const CProjectModel *project)
    : m_project(project), m_copies(QFileInfo(ConvertedImages::folder(*project)).path())
{
}

QString CImageImport::missing() const
{
    return m_missing.isEmpty()
               ? QString()
               : tr("These images were not found: %1").arg(m_missing.join(QStringLiteral(", ")));
}

QString CImageImport::bring(SItemElement &root)
{
    for (SItemElement &item : root.children) {
        if (!m_error.isEmpty())
            break;
        resolveFolder(item);
        bring(item);
    }
    return m_error;
}

void CImageImport::resolveFolder(SItemElement &item)
{
    const QString text = item.attribute(PropertyKey::BitmapFolder);
    const QString base = item.attribute(PropertyKey::BaseName);
    if (text.isEmpty())
        return;
    const QString folder = m_project->placeText(text);
    if (QDir::isAbsolutePath(folder) && !m_project->imagePlaces().folders().contains(folder) &&
        !base.isEmpty()) {
        bringItem(item, folder, base);
        return;
    }
    item.setAttribute(PropertyKey::BitmapFolder, folder);
    if (item.hasAttribute(PropertyKey::FileName))
        item.setAttribute(PropertyKey::FileName,
                          m_project->placeText(item.attribute(PropertyKey::FileName)));
}

void CImageImport::bringItem(SItemElement &item, const QString &folder, const QString &base)
{
    const SFiles files = filesOf(item, folder, base);
    if (files.all.isEmpty()) {
        m_missing.append(QDir::toNativeSeparators(folder + QLatin1Char('/') + base));
        return;
    }
    for (const SFiles::SFile &each : files.all) {
        if (QFileInfo(each.path).size() > CImageFileConverter::MaxSourceBytes)
            m_error = tr("%1: the file is too big").arg(QDir::toNativeSeparators(each.path));
    }
    const QString suffix = item.attribute(PropertyKey::Suffix, QStringLiteral("png"));
    const int code = item.tag == TypeName::Media
                         ? CBitmapFormatTable::UnknownCode
                         : CBitmapFormatTable::code(item.attribute(PropertyKey::Format));
    const QString root = ConvertedImages::folder(*m_project);
    for (int number = 1; m_error.isEmpty(); ++number) {
        const QString name = ImageNames::numbered(base, number);
        const QString target =
            CConversionPaths(root, name + QLatin1Char('.') + suffix).folder(code);
        CFileCopies copies(QFileInfo(root).path());
        for (const SFiles::SFile &each : files.all)
            copies.add(each.path, target + QLatin1Char('/') + name + each.ending);
        if (copies.meetOthers() || !fits(files, target, name))
            continue;
        m_error = copies.copy();
        if (!m_error.isEmpty())
            break;
        m_copies.add(copies);
        item.setAttribute(PropertyKey::BaseName, name);
        item.setAttribute(PropertyKey::BitmapFolder, m_project->placeText(target));
        const QString source = target + QLatin1Char('/') + name + files.sourceEnding;
        if (item.hasAttribute(PropertyKey::FileName))
            item.setAttribute(PropertyKey::FileName, files.sourceEnding.isEmpty()
                                                         ? QString()
                                                         : m_project->placeText(source));
        return;
    }
    m_copies.takeBack();
}

/// None when what the item shows is not there.
CImageImport::SFiles CImageImport::filesOf(const SItemElement &item, const QString &folder,
                                           const QString &base)
{
    const QString start = folder + QLatin1Char('/');
    const QString suffix = item.attribute(PropertyKey::Suffix);
    const QString format = item.attribute(PropertyKey::Format);
    const bool isMedia = item.tag == TypeName::Media;
    const bool isAsItIs = isMedia || suffix == QLatin1String("raw");
    const QString shown = isAsItIs ? start + base + QLatin1Char('.') + suffix
                                   : start + base + QLatin1Char('_') + format + ".raw";
    const bool showsNothing = !isAsItIs && format == QLatin1String("None");
    SFiles files;
    if (base.contains(QLatin1Char('/')) || !(showsNothing || mayBeBrought(QFileInfo(shown))))
        return files;

    QString source = isAsItIs ? shown : ImageNames::sourceIn(folder, base);
    for (const QString &each : ImageNames::filesOf(folder, base)) {
        if (isMedia ? start + each == shown : mayBeBrought(QFileInfo(start + each)))
            files.all.append({start + each, each.mid(base.size())});
    }
    const QFileInfo original(item.attribute(PropertyKey::FileName));
    if (source.isEmpty() && original.isAbsolute() && mayBeBrought(original)) {
        source = original.filePath();
        files.all.append({source, QLatin1Char('.') + original.suffix()});
    }
    const auto isSource = [&source](const SFiles::SFile &each) { return each.path == source; };
    std::stable_partition(files.all.begin(), files.all.end(), isSource);
    if (!files.all.isEmpty() && isSource(files.all.first()))
        files.sourceEnding = files.all.first().ending;
    return files;
}

/// Whether the base name is free there, or belongs to the same image; what lies there under the
/// names of the files is equal to them.
bool CImageImport::fits(const SFiles &files, const QString &folder, const QString &base) const
{
    QStringList brought;
    for (const SFiles::SFile &each : files.all)
        brought.append(base + each.ending);
    const QStringList there = ImageNames::filesOf(folder, base);
    bool hasMore = false;
    for (const QString &each : there) {
        if (brought.contains(each))
            brought.removeOne(each);
        else if (ImageNames::isOutput(each, base))
            hasMore = true;
        else
            return false; // another image's source
    }
    // Other formats beside them were made of the same image if their source is the same.
    const bool isSameSource =
        !files.sourceEnding.isEmpty() && there.contains(base + files.sourceEnding);
    return !hasMore || isSameSource || (files.sourceEnding.isEmpty() && brought.isEmpty());
}
