#pragma once

#include <QIcon>
#include <QString>

/// The editor's icons in the theme that is in force. An icon given out follows a later change of
/// the theme by itself; who shows a pixmap of it asks for a new one. GUI thread only.
class CThemeIcons
{
public:
    /// Theme of all icons from now on: "dark", "light" or "bright"; any other name means dark.
    static void setTheme(const QString &name);
    static QString theme();

    /// The icon with the given resource name, e.g. ":/images/Save.png". A picture that has no
    /// variants for the themes comes as it is; a name that does not exist gives a null icon.
    static QIcon icon(const QString &resource);

    /// The icon with a dot in its corner: there is something to do with it.
    static QIcon marked(const QString &resource);

    /// A picture as an icon whose colours stay the same in selected and in disabled rows.
    static QIcon untinted(const QPixmap &picture);
};
