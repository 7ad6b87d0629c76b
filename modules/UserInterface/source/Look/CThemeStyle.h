#pragma once

#include <QProxyStyle>

/// The Fusion style with the editor's own pictures where no style sheet reaches: those of files and
/// folders, for which file dialogs ask the application's style, and of the button that clears a
/// line of text. A rubber band is a thin line that hardly tints what it lies over. The button for
/// what does not fit on a tool bar is wide enough for its picture, those of docks for a pointer.
class CThemeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    CThemeStyle();

    QIcon standardIcon(StandardPixmap which, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement which, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    int pixelMetric(PixelMetric which, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;
    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
    QRect subElementRect(SubElement which, const QStyleOption *option,
                         const QWidget *widget = nullptr) const override;
};
