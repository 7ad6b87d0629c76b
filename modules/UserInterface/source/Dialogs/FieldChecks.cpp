#include "FieldChecks.h"

#include "FileNames.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("FieldChecks", text);
}

} // namespace

QString FieldChecks::problemOfProjectName(const QString &name)
{
    const QString suffix = QStringLiteral(".nyx");
    if (name.trimmed().isEmpty())
        return tr("The project needs a name.");
    if (FileNames::safe(name, suffix) != name + suffix)
        return tr("This cannot be the name of a file.");
    return {};
}

QString FieldChecks::problemOfFolder(const QString &folder)
{
    const QFileInfo info(folder);
    if (folder.trimmed().isEmpty())
        return tr("Choose a folder for the project.");
    if (!info.exists())
        return tr("This folder does not exist.");
    if (!info.isDir())
        return tr("This is not a folder.");
    if (!info.isWritable())
        return tr("This folder cannot be written to.");
    return {};
}
