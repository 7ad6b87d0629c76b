#pragma once

#include "CWatchdog.h"

#include <QGenericPlugin>
#include <QObject>

#include <cstdio>

/// Inside the program under test: answers questions about what is on the screen, a line from the
/// standard input each, with a line on the standard output.
///   scene X Y        where a point of the shown page lies
///   widget NAME      the middle of the visible widget of that object name
///   button TEXT      the middle of the visible button with that text
///   corner NAME      a place just inside the upper left corner of that widget
///   tool NAME HOLDER the visible, enabled tool button of that action's object name, below a widget
///   of
///                    the second name when there is one
///   row CLASS TEXT   the middle of the row of a view
///   menu TEXT        the middle of the entry of the open menu
///   windows          the classes of the visible top-level windows
///   active           "yes" when the main window is the active one
///   focus            the class of the widget that has the focus
///   clipboard        the formats of what the clipboard holds
///   picture FILE     saves a picture of the whole screen
///   slowest          what kept the GUI thread longest since it was last asked, see CWatchdog
///   quiet            for how many milliseconds the GUI thread has had nothing to do
/// Places are "x y" in pixels of the X screen; what is not to be seen is "none".
class CProbe : public QObject
{
    Q_OBJECT

public:
    CProbe();

private:
    void answer();
    QString answerTo(const QString &question);

    CWatchdog m_watchdog;
};

class CProbePlugin final : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

public:
    QObject *create(const QString &name, const QString &arguments) override;
};
