#include "CThemeIcons.h"

#include "CThemeIconEngine.h"

#include <QFile>
#include <QFileInfo>

namespace {

QString themeInForce = QStringLiteral("dark");

/// The program's own mark keeps its colours and is drawn for more sizes than other icons.
QIcon applicationIcon()
{
    QIcon icon;
    for (const int pixels : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/app/%1.png").arg(pixels));
    return icon;
}

} // namespace

void CThemeIcons::setTheme(const QString &name)
{
    const bool isKnown = name == QStringLiteral("light") || name == QStringLiteral("bright");
    themeInForce = isKnown ? name : QStringLiteral("dark");
}

QString CThemeIcons::theme()
{
    return themeInForce;
}

QIcon CThemeIcons::icon(const QString &resource)
{
    if (resource == QStringLiteral(":/images/icon.png"))
        return applicationIcon();
    if (resource.startsWith(QStringLiteral(":/images/"))) {
        const QString name = QFileInfo(resource).completeBaseName();
        if (CThemeIconEngine::exists(name))
            return QIcon(new CThemeIconEngine(name));
    }
    return QFile::exists(resource) ? QIcon(resource) : QIcon();
}

QIcon CThemeIcons::marked(const QString &resource)
{
    const QString name = QFileInfo(resource).completeBaseName();
    return CThemeIconEngine::exists(name)
               ? QIcon(new CThemeIconEngine(name, CThemeIconEngine::EMark::Dot))
               : icon(resource);
}

QIcon CThemeIcons::untinted(const QPixmap &picture)
{
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected);
    icon.addPixmap(picture, QIcon::Disabled);
    return icon;
}
