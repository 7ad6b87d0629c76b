#include "CConvertedFolder.h"

#include "CFileWriter.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "FileNames.h"
#include "PropertyKey.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <functional>

namespace {
/// An image that lies there already stays whole until the new one is.
QString copyFile(const QString &source, const QString &target)
{
    QFile file(source);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError)
        return QCoreApplication::translate("CConvertedFolder", "%1 could not be copied: %2")
            .arg(source, file.errorString());
    return CFileWriter::write(target, bytes);
}

void forEachItem(QStandardItem *parent, const std::function<void(CItemModel *)> &visit)
{
    for (int row = 0; row < parent->rowCount(); ++row) {
        CItemModel *item = CItemModel::fromItem(parent->child(row));
        if (!item)
            continue;
        visit(item);
        forEachItem(item, visit);
    }
}
} // namespace

QString CConvertedFolder::path(const QString &workingDirectory, const QString &projectName)
{
    const QDir folder(workingDirectory.isEmpty() ? QDir::currentPath() : workingDirectory);
    return QDir::cleanPath(folder.absoluteFilePath(FileNames::convertedImages(projectName)));
}

QString CConvertedFolder::copy(const QString &from, const QString &to)
{
    if (from == to || !QFileInfo(from).isDir())
        return {};
    QStringList files; // listed before anything is made: the target may lie below the source
    QDirIterator each(from, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (each.hasNext())
        files.append(each.next());
    for (const QString &file : qAsConst(files)) {
        const QString target = to + file.mid(from.size());
        if (!QDir().mkpath(QFileInfo(target).path()))
            return QCoreApplication::translate("CConvertedFolder",
                                               "The folder %1 could not be made")
                .arg(QFileInfo(target).path());
        const QString reason = copyFile(file, target);
        if (!reason.isEmpty())
            return reason;
    }
    return {};
}

std::function<void()> CConvertedFolder::rename(CProjectModel *project,
                                               const QString &workingDirectory,
                                               const QString &projectName)
{
    const QString oldName = project->propertyText(PropertyKey::ProjectName);
    const QString oldDirectory = project->workingDirectory();
    const QString from = path(oldDirectory, oldName);
    const QString to = path(workingDirectory, projectName);
    QHash<CItemModel *, QString> folders; // absolute, as they will be
    forEachItem(project->invisibleRootItem(), [&](CItemModel *item) {
        const QString stored = item->propertyText(PropertyKey::BitmapFolder);
        if (stored.isEmpty())
            return;
        const QString folder = QDir::cleanPath(project->absoluteFolder(stored));
        const bool isConverted = folder == from || folder.startsWith(from + QLatin1Char('/'));
        folders.insert(item, isConverted ? to + folder.mid(from.size()) : folder);
    });
    project->setProjectProperty(PropertyKey::ProjectName, projectName);
    project->setWorkingDirectory(workingDirectory);

    QHash<CItemModel *, QString> oldTexts;
    for (auto it = folders.cbegin(); it != folders.cend(); ++it) {
        const QString old = it.key()->propertyText(PropertyKey::BitmapFolder);
        const QString stored = project->storedFolder(it.value());
        if (stored == old)
            continue;
        oldTexts.insert(it.key(), old);
        it.key()->setProperty(PropertyKey::BitmapFolder, stored);
    }
    return [=] {
        project->setProjectProperty(PropertyKey::ProjectName, oldName);
        project->setWorkingDirectory(oldDirectory);
        for (auto it = oldTexts.cbegin(); it != oldTexts.cend(); ++it)
            it.key()->setProperty(PropertyKey::BitmapFolder, it.value());
    };
}
