#include "CThemeStyle.h"

#include "CThemeIcons.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

constexpr int DockButton = 20; // pixels

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

void CThemeStyle::drawControl(ControlElement which, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const
{
    constexpr int withFill = 26; // of 255
    constexpr int middle = 150;  // of 255: seen on dark and on bright pages, in every theme
    if (which != CE_RubberBand)
        return QProxyStyle::drawControl(which, option, painter, widget);
    QColor colour = option->palette.color(QPalette::Active, QPalette::Highlight);
    colour.setHsl(colour.hslHue(), colour.hslSaturation(), middle);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(colour, 0)); // one pixel of the device, whatever a pixel is to the window
    colour.setAlpha(withFill);
    painter->setBrush(colour);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

int CThemeStyle::pixelMetric(PixelMetric which, const QStyleOption *option,
                             const QWidget *widget) const
{
    constexpr int withFrame = 26; // pixels; a mark of 16 in the frame of a tool button
    return which == PM_ToolBarExtensionExtent ? withFrame
                                              : QProxyStyle::pixelMetric(which, option, widget);
}

void CThemeStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (widget->inherits("QDockWidgetTitleButton"))
        widget->setMinimumSize(DockButton, DockButton); // its layout makes it no larger than that
}

QRect CThemeStyle::subElementRect(SubElement which, const QStyleOption *option,
                                  const QWidget *widget) const
{
    constexpr int Gap = 2; // pixels
    const QRect usual = QProxyStyle::subElementRect(which, option, widget);
    if ((which != SE_DockWidgetCloseButton && which != SE_DockWidgetFloatButton) || usual.isEmpty())
        return usual;
    const int fromEnd = (which == SE_DockWidgetCloseButton ? 1 : 2) * (DockButton + Gap);
    const QRect title = option->rect;
    return visualRect(option->direction, title,
                      {title.right() + 1 - fromEnd, title.top() + (title.height() - DockButton) / 2,
                       DockButton, DockButton});
}
