#pragma once

#include <QProxyStyle>

/// The Fusion style with the editor's own pictures of files and folders. File dialogs ask the
/// application's style for them, past every style sheet.
class CThemeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    CThemeStyle();

    QIcon standardIcon(StandardPixmap which, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
};
