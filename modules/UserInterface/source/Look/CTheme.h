#pragma once

#include <QPalette>
#include <QString>

class QWidget;

/// The look of the editor: style, palette, style sheet and icons of one of the themes.
/// GUI thread only.
class CTheme
{
public:
    enum class Kind { Dark, Light, Bright };

    /// `window` gets the style sheet, and with it all its children; not owned.
    explicit CTheme(QWidget *window);

    /// Puts a theme in force for the whole application.
    void apply(Kind kind);

    /// Name of the theme in force, such as "dark", as the settings keep it; empty before the
    /// first apply().
    QString name() const { return m_name; }

    static QString nameOf(Kind kind);
    static Kind kindOf(const QString &name); ///< dark for names of none
    static QPalette palette(Kind kind);

    /// The text of a style sheet; empty when it cannot be read.
    static QString readStyleSheet(const QString &fileName);

private:
    void showErrorIcons();

    QWidget *const m_window;
    QString m_name;
};
