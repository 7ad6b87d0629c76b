#include "CImageMove.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "ConvertedImages.h"
#include "FileNames.h"
#include "ItemTree.h"
#include "PropertyKey.h"

#include <QDir>
#include <QDirIterator>
#include <QMap>

namespace {
QString below(const QString &folder, const QString &name)
{
    return QDir::cleanPath(folder + QLatin1Char('/') + name);
}

QString parentOf(const QString &path)
{
    return path.left(qMax(1, path.lastIndexOf(QLatin1Char('/'))));
}

QStringList allFilesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator each(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks,
                      QDirIterator::Subdirectories);
    while (each.hasNext())
        files.append(each.next().mid(folder.size() + 1));
    return files;
}

/// Those that carry one of the base names, with or without a format behind it.
QStringList filesOf(const QString &folder, const QSet<QString> &names)
{
    QStringList files;
    const QStringList all = QDir(folder).entryList(QDir::Files | QDir::Hidden);
    for (const QString &each : all) {
        const QString name = QFileInfo(each).completeBaseName();
        const bool isUsed =
            names.contains(name) || names.contains(name.section(QLatin1Char('_'), 0, -2));
        if (isUsed && FileNames::isImage(each))
            files.append(each);
    }
    return files;
}
} // namespace

CImageMove::CImageMove(CProjectModel *project, const QString &workingDirectory,
                       const QString &projectName)
    : m_project(project),
      m_from(ConvertedImages::projectFolder(project->workingDirectory())),
      m_to(ConvertedImages::projectFolder(workingDirectory)),
      m_converted(ConvertedImages::folder(workingDirectory, projectName)),
      m_name(projectName),
      m_newDirectory(workingDirectory),
      m_oldName(project->propertyText(PropertyKey::ProjectName)),
      m_oldDirectory(project->workingDirectory()),
      m_oldPlaces(project->imagePlaces()),
      m_oldFonts(project->fonts()),
      m_copies(m_to)
{
    planConverted();
    planOthers();
    planTexts();
}

/// The project may have had other names: their folders are still in use.
void CImageMove::planConverted()
{
    QStringList folders = {ConvertedImages::folder(m_oldDirectory, m_oldName)};
    for (const QString &text : m_oldPlaces.folders()) {
        QString folder = absolute(text);
        while (isInside(folder) && parentOf(folder) != m_from)
            folder = parentOf(folder);
        if (ConvertedImages::isFolder(folder, m_from))
            folders.append(folder);
    }
    folders.removeDuplicates();
    std::sort(folders.begin() + 1, folders.end());
    for (const QString &each : qAsConst(folders))
        planFolder(each, allFilesBelow(each), m_converted);
}

/// Sources, media and fonts anywhere else in the project's folder, of which only what is used goes
/// along.
void CImageMove::planOthers()
{
    QMap<QString, QStringList> folders;
    for (const QString &text : m_oldPlaces.folders()) {
        const QString folder = absolute(text);
        if (isInside(folder))
            folders[folder] += filesOf(folder, m_oldPlaces.names());
    }
    for (const QString &text : m_oldPlaces.files()) {
        const QFileInfo file(absolute(text));
        const bool isKnown =
            FileNames::isImage(file.fileName()) || FileNames::isFont(file.fileName());
        if (isInside(file.filePath()) && isKnown)
            folders[parentOf(file.filePath())].append(file.fileName());
    }
    for (auto each = folders.begin(); each != folders.end(); ++each) {
        each.value().removeDuplicates();
        const bool isFonts = each.key() == below(m_from, FileNames::fonts(m_oldName));
        const QString place = isFonts ? FileNames::fonts(m_name) : each.key().mid(m_from.size());
        if (moved(each.key()).isEmpty())
            planFolder(each.key(), each.value(), below(m_to, place));
    }
}

void CImageMove::planFolder(const QString &folder, const QStringList &files, const QString &wanted)
{
    for (int number = 1;; ++number) {
        const QString target = number == 1 ? wanted : below(m_converted, QString::number(number));
        CFileCopies copies = m_copies;
        for (const QString &each : files)
            copies.add(below(folder, each), below(target, each));
        if (copies.meetOthers())
            continue;
        m_copies = copies;
        m_folders.insert(folder, target);
        return;
    }
}

void CImageMove::planTexts()
{
    const auto plan = [this](const QString &text, const QString &place) {
        const bool isBelow = place.startsWith(m_to + QLatin1Char('/')) || place == m_to;
        const QString now = !isBelow        ? place
                            : place == m_to ? QStringLiteral(".")
                                            : place.mid(m_to.size() + 1);
        if (now != text)
            m_texts.insert(text, now);
    };
    for (const QString &text : m_oldPlaces.folders()) {
        const QString folder = absolute(text);
        if (isInside(folder))
            plan(text, moved(folder));
        else if (QDir::isRelativePath(text))
            plan(text, folder);
    }
    for (const QString &text : m_oldPlaces.files()) {
        const QString file = absolute(text);
        const QString folder = isInside(file) ? moved(parentOf(file)) : QString();
        if (!folder.isEmpty())
            plan(text, below(folder, QFileInfo(file).fileName()));
        else if (QDir::isRelativePath(text))
            plan(text, file);
    }
    // A text that means something else to older commands stays absolute.
    CImagePlaces places = m_oldPlaces;
    places.move(m_texts);
    for (QString &each : m_texts) {
        if (QDir::isRelativePath(each) && places.today(each) != each)
            each = below(m_to, each);
    }
}

bool CImageMove::isInside(const QString &path) const
{
    return path == m_from || path.startsWith(m_from + QLatin1Char('/'));
}

QString CImageMove::absolute(const QString &text) const
{
    return QDir::isAbsolutePath(text) ? QDir::cleanPath(text) : below(m_from, text);
}

/// Empty when it was not planned. Folders of converted images go with all below them.
QString CImageMove::moved(const QString &folder) const
{
    const QString found = m_folders.value(folder);
    for (QString each = folder; found.isEmpty() && isInside(each) && each != m_from;
         each = parentOf(each)) {
        if (ConvertedImages::isFolder(each, m_from) && m_folders.contains(each))
            return m_folders.value(each) + folder.mid(each.size());
    }
    return found;
}

void CImageMove::apply()
{
    m_project->setProjectProperty(PropertyKey::ProjectName, m_name);
    m_project->setWorkingDirectory(m_newDirectory);
    CImagePlaces places = m_oldPlaces;
    places.move(m_texts);
    m_project->setImagePlaces(places);
    m_project->setFonts(m_oldFonts);
    forEachItem(*m_project, [this](CItemModel &each) { update(each); });
}

void CImageMove::update(CItemModel &item)
{
    for (const QString &key : {PropertyKey::BitmapFolder, PropertyKey::FileName}) {
        const QString text = item.propertyText(key);
        const QString now = m_project->imagePlaces().today(text);
        if (text.isEmpty() || now == text)
            continue;
        m_oldTexts.append({&item, key, text});
        item.setProperty(key, now);
    }
}

void CImageMove::takeBack()
{
    m_project->setProjectProperty(PropertyKey::ProjectName, m_oldName);
    m_project->setWorkingDirectory(m_oldDirectory);
    for (const SText &each : qAsConst(m_oldTexts))
        each.item->setProperty(each.key, each.text);
    m_project->setImagePlaces(m_oldPlaces);
    m_project->setFonts(m_oldFonts);
    m_copies.takeBack();
}
