#include "CCommandDeleteImage.h"

#include "CFileWriter.h"
#include "CFolder.h"
#include "CProjectModel.h"
#include "ConvertedImages.h"
#include "PropertyKey.h"
#include "RegularFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace {
QString native(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

/// A step knows its folder as long as the project is told of it.
QString notedFolder(CProjectModel &project, const QString &file)
{
    const QString text = project.placeText(QFileInfo(file).path());
    CImagePlaces places = project.imagePlaces();
    places.note(PropertyKey::BitmapFolder, text);
    project.setImagePlaces(places);
    return text;
}

std::optional<QByteArray> read(const QString &path, QString *reason)
{
    QFile file;
    if (!openRegularFile(file, path, reason))
        return std::nullopt;
    if (file.size() > CCommandDeleteImage::MostBytes) {
        *reason = CCommandDeleteImage::tr("it is too large to be brought back by Undo");
        return std::nullopt;
    }
    const QByteArray bytes = file.read(CCommandDeleteImage::MostBytes);
    if (file.error() == QFile::NoError && bytes.size() == file.size())
        return bytes;
    *reason = file.errorString();
    return std::nullopt;
}
} // namespace

CCommandDeleteImage::CCommandDeleteImage(CProjectModel *project, const QString &file,
                                         const SCalls &calls)
    : m_project(project),
      m_calls(calls),
      m_folder(notedFolder(*project, file)),
      m_base(QFileInfo(file).completeBaseName() + QLatin1Char('.'))
{
}

QString CCommandDeleteImage::whyNot(const CProjectModel &project, const QString &file,
                                    const SCalls &calls)
{
    if (ConvertedImages::isShown(project, file))
        return tr("%1 was not deleted: an item shows it.").arg(native(file));
    if (calls.isSaved && calls.isSaved(file))
        return tr("%1 was not deleted: the project as it was saved last still shows it. Save the "
                  "project first.")
            .arg(native(file));
    return {};
}

QString CCommandDeleteImage::folder() const
{
    return m_project->absoluteFolder(m_project->imagePlaces().today(m_folder));
}

void CCommandDeleteImage::redo()
{
    const QString error = m_isAnew ? QString() : remove();
    m_isGone = m_isGone || (error.isEmpty() && !m_isAnew);
    setObsolete(!m_isGone && !m_isPushed);
    m_isPushed = true;
    m_calls.tried(error);
}

void CCommandDeleteImage::undo()
{
    const QFileInfo image(folder() + QLatin1Char('/') + m_base + QLatin1String("raw"));
    m_isAnew = m_isAnew || (m_isGone && image.exists());
    const QString error = m_isGone ? writeBack() : QString();
    m_isGone = !error.isEmpty();
    m_calls.tried(error);
}

QString CCommandDeleteImage::remove()
{
    const QString path = folder() + QLatin1Char('/') + m_base;
    QString reason = whyNot(*m_project, path + QLatin1String("raw"), m_calls);
    if (!reason.isEmpty())
        return reason;
    const CFolder place =
        CFolder::below(ConvertedImages::projectFolder(m_project->workingDirectory()), folder());
    if (!place.isOpen())
        return place.error();
    QVector<SFile> found;
    for (const char *suffix : {"raw", "json", "lut"}) { // without the first, the others are nothing
        const QString name = m_base + QLatin1String(suffix);
        const CFolder::EEntry entry = place.entry(name);
        if (entry == CFolder::EEntry::None)
            continue;
        const bool isFile = entry == CFolder::EEntry::File || entry == CFolder::EEntry::SharedFile;
        const auto bytes = isFile ? read(path + QLatin1String(suffix), &reason) : std::nullopt;
        if (!bytes)
            return tr("%1 was not deleted: %2")
                .arg(native(path + QLatin1String(suffix)),
                     isFile ? reason : tr("it is not a regular file"));
        found.append({QLatin1String(suffix), *bytes});
    }
    hold(found);
    for (const SFile &each : qAsConst(found)) {
        if (place.remove(m_base + each.suffix))
            continue;
        reason =
            tr("%1 could not be deleted: %2").arg(native(path + each.suffix), qt_error_string());
        writeBack();
        return reason;
    }
    return {};
}

/// What is not there any more, because it could not be written back, stays held.
void CCommandDeleteImage::hold(const QVector<SFile> &files)
{
    for (const SFile &file : files) {
        const auto held = std::find_if(m_held.begin(), m_held.end(), [&](const SFile &each) {
            return each.suffix == file.suffix;
        });
        if (held == m_held.end())
            m_held.append(file);
        else
            *held = file;
    }
}

QString CCommandDeleteImage::writeBack() const
{
    QStringList made;
    const CFolder place = CFolder::madeBelow(
        ConvertedImages::projectFolder(m_project->workingDirectory()), folder(), &made);
    if (!place.isOpen())
        return tr("The image cannot be brought back. %1").arg(place.error());
    for (auto each = m_held.rbegin(); each != m_held.rend(); ++each) {
        const QString name = m_base + each->suffix;
        const QString path = folder() + QLatin1Char('/') + name;
        QString reason;
        if (place.entry(name) == CFolder::EEntry::None)
            reason = CFileWriter::write(place, name, each->bytes);
        else if (read(path, &reason) != each->bytes)
            reason = tr("Another file is called %1 now.").arg(native(path));
        else
            reason.clear();
        if (!reason.isEmpty())
            return tr("The image cannot be brought back. %1").arg(reason);
    }
    return {};
}
