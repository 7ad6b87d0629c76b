#include "CThemeStyle.h"

#include "CThemeIcons.h"

#include <QStyleFactory>

namespace {

QString nameOf(QStyle::StandardPixmap which)
{
    switch (which) {
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirClosedIcon:
    case QStyle::SP_DirLinkIcon:
    case QStyle::SP_DirHomeIcon:
        return QStringLiteral("folder");
    case QStyle::SP_DirOpenIcon:
    case QStyle::SP_DirLinkOpenIcon:
        return QStringLiteral("openProject");
    case QStyle::SP_FileIcon:
    case QStyle::SP_FileLinkIcon:
        return QStringLiteral("file");
    case QStyle::SP_ComputerIcon:
    case QStyle::SP_DesktopIcon:
        return QStringLiteral("screen");
    case QStyle::SP_LineEditClearButton:
        return QStringLiteral("clearText");
    default:
        return {};
    }
}

} // namespace

CThemeStyle::CThemeStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
    setObjectName(QStringLiteral("fusion")); // as who asks for the style's name expects it
}

QIcon CThemeStyle::standardIcon(StandardPixmap which, const QStyleOption *option,
                                const QWidget *widget) const
{
    const QString name = nameOf(which);
    return name.isEmpty() ? QProxyStyle::standardIcon(which, option, widget)
                          : CThemeIcons::icon(QStringLiteral(":/images/%1.png").arg(name));
}

int CThemeStyle::pixelMetric(PixelMetric which, const QStyleOption *option,
                             const QWidget *widget) const
{
    constexpr int withFrame = 26; // pixels; a mark of 16 in the frame of a tool button
    return which == PM_ToolBarExtensionExtent ? withFrame
                                              : QProxyStyle::pixelMetric(which, option, widget);
}
