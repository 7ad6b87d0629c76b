#pragma once

#include "CChildProcess.h"

#include <QByteArray>
#include <QPoint>
#include <QTemporaryDir>

class CDisplay;

/// A running panel-composer in a programs' folder of its own, with one project open. Ends with this
/// object.
/// Its functions fail the current test when the program does not do what they wait for.
class CEditor
{
public:
    /// `settings`: lines of the settings file.
    CEditor(CDisplay *display, const QByteArray &project,
            const QByteArray &settings = "autosaveInterval=0");
    ~CEditor();

    /// Starts the program with the project file; the constructor has done so once.
    void start();
    void kill(); ///< as a crash does

    /// Brings its window to the front and gives it the focus.
    void activate();
    /// What the probe says, see CProbe.
    QString ask(const QString &question);
    /// A place that the probe is asked for until it is to be seen.
    QPoint place(const QString &question);
    QPoint scene(int x, int y);
    /// Clicks at a place until the widget there, of that class, has the focus. The window may still
    /// be on its way when the first click comes.
    void focus(const QString &question, const char *widgetClass);
    /// Clicks on what goes away when it is clicked, such as the button of a dialog.
    void clickAway(const QString &question);
    void picture(const char *name);
    /// Ctrl+Q, and the way to the end.
    void quit();

    QString folder() const { return m_folder.path(); }
    QString projectFile() const { return m_folder.filePath(QStringLiteral("demo.nyx")); }
    /// The values of the attributes, one space between them, of the n-th element of that kind in
    /// the project as it is saved.
    QString saved(const char *kind, const QStringList &attributes, int n = 0) const;
    int savedCount(const char *kind) const;

private:
    CDisplay *const m_display;
    QTemporaryDir m_folder;
    CChildProcess m_process;
};
