#pragma once

#include "CChildProcess.h"

#include <QPoint>
#include <QProcessEnvironment>
#include <QTemporaryDir>

/// An X server without a screen, with a window manager, and the hands of its user.
class CDisplay
{
public:
    ~CDisplay();

    /// What went wrong; nothing when the display is ready.
    QString start();
    /// For programs on this display.
    const QProcessEnvironment &environment() const { return m_environment; }

    void click(const QPoint &place, int button = 1);
    void press(const QPoint &place);
    /// In small steps, as a hand moves the pointer.
    void moveTo(const QPoint &place);
    void release();
    void drag(const QPoint &from, const QPoint &to);
    void key(const char *name);
    void type(const char *text);
    bool hands(const QStringList &arguments);

private:
    QTemporaryDir m_home;
    CChildProcess m_server;
    CChildProcess m_windowManager;
    QProcessEnvironment m_environment;
    QPoint m_pointer;
};
