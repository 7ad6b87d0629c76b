#include "CAutosaveTimer.h"

#include "CMainWindow.h"

CAutosaveTimer::CAutosaveTimer(CMainWindow *window) : QTimer(window), m_window(window)
{
    connect(this, &QTimer::timeout, window, &CMainWindow::autosave);
}

void CAutosaveTimer::restart()
{
    constexpr int millisecondsPerSecond = 1000;
    const int interval = m_window->autosaveInterval();
    stop();
    if (interval > 0)
        start(interval * millisecondsPerSecond);
}
