#include "PackagePaths.h"

#include "QxKivEmuLib.h"
#include "executor/BitmapFormats.h"

#include <QDir>
#include <QFileInfo>

QString fileInPackage(const QString &path, const QString &folder)
{
    const QString relative = QDir(folder).relativeFilePath(path);
    const bool isBelow = !folder.isEmpty() && QDir::isRelativePath(relative) &&
                         !relative.startsWith(QLatin1String("../"));
    return isBelow ? QDir::cleanPath(relative) : QFileInfo(path).fileName();
}

QString formatInPackage(uint32_t code)
{
    if (code == EMU_ASSET_FONT)
        return QStringLiteral("FONT");
    const char *name = kivemu::bitmapFormatName(code);
    return name ? QString::fromLatin1(name) : QString::number(code);
}
