#pragma once

#include <QTimer>

class CMainWindow;

/// Ticks at the autosave interval and lets the main window save at each tick.
class CAutosaveTimer : public QTimer
{
    Q_OBJECT

public:
    explicit CAutosaveTimer(CMainWindow *window);

    /// To be called whenever the main window's interval has changed; 0 or less stops the timer.
    void restart();

private:
    CMainWindow *const m_window;
};
