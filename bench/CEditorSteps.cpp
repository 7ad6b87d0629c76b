#include "CEditorSteps.h"

#include "CEmulatorAdapter.h"
#include "CMainWindow.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CTimedApplication.h"

#include <QAction>
#include <QElapsedTimer>
#include <QThread>
#include <QUndoStack>

#include <algorithm>

namespace bench {

namespace {
constexpr int Quiet = 120; ///< milliseconds without work, after which nothing more is expected

double millisecondsOf(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}
} // namespace

CEditorSteps::CEditorSteps(CTimedApplication *application, CMainWindow *window)
    : m_application(application), m_window(window)
{
}

QByteArrayList CEditorSteps::names()
{
    return {"open", "select all", "delete", "undo", "group", "save", "close", "show page"};
}

void CEditorSteps::settle()
{
    QElapsedTimer quiet;
    quiet.start();
    while (quiet.elapsed() < Quiet) {
        const double before = CTimedApplication::threadTime();
        QCoreApplication::processEvents();
        const bool isDrawing = m_window->project() && CEmulatorAdapter::instance()->isBusy();
        if (CTimedApplication::threadTime() - before > 1 || isDrawing)
            quiet.start();
        QThread::usleep(500);
    }
}

CEditorSteps::Figures CEditorSteps::timed(const std::function<void()> &action)
{
    settle();
    m_application->takeHandlers();
    QElapsedTimer timer;
    timer.start();
    const double before = CTimedApplication::threadTime();
    action();
    Figures figures;
    figures.longest = millisecondsOf(timer);
    figures.processor = CTimedApplication::threadTime() - before;
    settle();
    figures.whole = millisecondsOf(timer) - Quiet;
    for (const CTimedApplication::Handler &each : m_application->takeHandlers()) {
        figures.longest = std::max(figures.longest, each.milliseconds);
        figures.processor = std::max(figures.processor, each.processor);
    }
    return figures;
}

/// As from the list of recent projects: checked first, then opened.
void CEditorSteps::open(const QString &projectFile)
{
    QAction chosen;
    chosen.setWhatsThis(projectFile);
    m_window->openRecent(&chosen);
}

CEditorSteps::Figures CEditorSteps::measure(const QByteArray &step, const QString &projectFile)
{
    if (step == "open")
        return timed([&] { open(projectFile); });
    open(projectFile);
    if (step == "select all")
        return timed([&] { m_window->selectAll(); });
    if (step == "save") {
        m_window->project()->undoStack()->resetClean();
        return timed([&] { m_window->saveProject(); });
    }
    if (step == "close")
        return timed([&] { m_window->closeProject(); });
    if (step == "show page") {
        CScreenModel *page = m_window->project()->screen(m_window->project()->screenCount() / 2);
        return timed([&] { m_window->findChild<CScreen *>()->openScreen(page); });
    }
    m_window->selectAll();
    if (step == "group")
        return timed([&] { m_window->group(); });
    if (step == "delete")
        return timed([&] { m_window->deleteSelectedItems(); });
    m_window->deleteSelectedItems();
    return timed([&] { m_window->project()->undoStack()->undo(); });
}

} // namespace bench
