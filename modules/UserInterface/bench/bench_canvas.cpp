// The canvas in the whole program, all panels connected, without a display: opening a screen of
// 1024 x 768, and drags on it. What a user waits for: from the event to the end of the paint that
// shows the frame. And what the GUI thread spends on it, in handlers and in all.
//   bench_canvas [WIDGETS SELECTED [snap]]    one drag alone, for a profiler
#include "CEditorState.h"
#include "CEmulatorAdapter.h"
#include "CItemView.h"
#include "CMainWindow.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CTimedApplication.h"
#include "CZoomComboWidget.h"
#include "ProgramFolder.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTimer>
#include <QUndoStack>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {
constexpr QSize WindowSize(1900, 1080); ///< the canvas shows all of the screen then
constexpr int Moves = 60;
constexpr int Patience = 5000; ///< milliseconds
const char *const Kinds[] = {"Kiv_Button_T", "Kiv_Text_T", "Kiv_Rectangle_T", "Kiv_Circle_T",
                             "Kiv_Progress_T"};

/// Two screens of so many widgets, in rows of 25. The frames differ, else the second would be
/// known.
QByteArray projectWith(int widgets)
{
    QByteArray items;
    for (int index = 0; index < widgets; ++index)
        items += QStringLiteral("<%1 name=\"w%2\" id=\"%2\" x_coordinate=\"%3\" y_coordinate=\"%4\""
                                "/>\n")
                     .arg(QLatin1String(Kinds[index % 5]))
                     .arg(index + 1)
                     .arg(10 + index % 25 * 39)
                     .arg(10 + index / 25 * 36)
                     .toUtf8();
    QByteArray xml = "<Kiv_Project_T project_name=\"bench\" platform=\"QX110\" width=\"1024\" "
                     "height=\"768\">";
    for (const char *colour : {"#101418", "#181410"})
        xml += QByteArray("<Kiv_Screen_T color=\"") + colour + "\">" + items + "</Kiv_Screen_T>";
    return xml + "</Kiv_Project_T>";
}

struct Figures
{
    std::vector<double> values; ///< milliseconds

    double at(double share)
    {
        if (values.empty())
            return 0;
        std::sort(values.begin(), values.end());
        return values[static_cast<size_t>(share * static_cast<double>(values.size() - 1))];
    }
    void print(const char *what)
    {
        std::printf("  %-34s median %7.2f   nine of ten %7.2f   worst %7.2f ms\n", what, at(0.5),
                    at(0.9), at(1.0));
    }
};

class CCanvasBench
{
public:
    CCanvasBench(CTimedApplication *application, const CProgramFolder &folder, int widgets)
        : m_application(application), m_widgets(widgets)
    {
        const QString file = folder.path("bench.nyx");
        QFile project(file);
        if (project.open(QIODevice::WriteOnly))
            project.write(projectWith(widgets));
        project.close();
        m_window.setAutosaveInterval(0);
        m_window.resize(WindowSize);
        m_window.show();
        m_window.openProjectFile(file);
        m_screens = m_window.findChild<CScreen *>();
        QObject::connect(CEmulatorAdapter::instance(), &CEmulatorAdapter::emulatorFrameCallback,
                         &m_window,
                         [this](bool, const QPixmap &, auto, auto, const void *observer) {
                             if (observer == m_screens->currentWidget())
                                 m_application->awaitPaintOf(viewport());
                         });
        m_tick.start(100);
        settle();
    }
    ~CCanvasBench() { m_window.closeProject(); }

    void opening()
    {
        CScreenModel *page = m_window.project()->screen(1);
        begin();
        for (int round = 0; round < 11; ++round) {
            start();
            m_screens->openScreen(page);
            finish();
            m_screens->closeScreen(page);
            settle();
        }
        print(QStringLiteral("open %1").arg(m_widgets));
    }

    void drag(int selected, bool snapping, int percent = 100)
    {
        CEditorState::instance()->setZoom(percent, CZoomComboWidget::FreeValue);
        CEditorState::instance()->setSnapToGrid(snapping);
        CScreenScene *scene = m_screens->currentView()->screenScene();
        for (int row = 0; row < selected; ++row)
            scene->viewOf(m_window.project()->screen(0)->childItem(row))->setSelected(true);
        settle();
        const QPointF from(42, 28); // in the first item, off its handles
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, from + QPointF(8, 8), Qt::NoButton);
        settle();
        begin();
        for (int step = 1; step <= Moves; ++step)
            move(from + QPointF(step * 23 % 700, step * 31 % 400));
        print(QStringLiteral("drag %1 of %2 at %3 %%4")
                  .arg(selected)
                  .arg(m_widgets)
                  .arg(percent)
                  .arg(snapping ? QStringLiteral(", snapping") : QString()));
        drop(from);
        m_window.project()->undoStack()->undo();
        scene->clearSelection();
        settle();
    }

private:
    QWidget *viewport() const { return m_screens->currentView()->viewport(); }

    void send(QEvent::Type type, QPointF scenePos, Qt::MouseButton button)
    {
        const QPoint pos = m_screens->currentView()->mapFromScene(scenePos);
        const Qt::MouseButtons buttons =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, pos, viewport()->mapToGlobal(pos), button, buttons, {});
        QCoreApplication::sendEvent(viewport(), &event);
    }

    void move(const QPointF &scenePos)
    {
        start();
        send(QEvent::MouseMove, scenePos, Qt::NoButton);
        finish();
    }

    /// What is written to the model at the end of a drag.
    void drop(const QPointF &scenePos)
    {
        send(QEvent::MouseButtonRelease, scenePos, Qt::LeftButton);
        const CTimedApplication::Handler release = m_application->takeHandlers().front();
        std::printf("  drop                               %7.2f ms, processor time %.2f ms\n",
                    release.milliseconds, release.processor);
    }

    /// Until the emulator and the window have nothing to do.
    void settle()
    {
        QElapsedTimer quiet;
        quiet.start();
        while (quiet.elapsed() < 300) {
            QCoreApplication::processEvents();
            if (CEmulatorAdapter::instance()->isBusy())
                quiet.start();
        }
    }

    void begin()
    {
        m_application->takeHandlers();
        m_whole = {};
        m_busy = {};
        m_others = {};
        m_handlers = {};
        m_handlersBusy = {};
        m_longest = {};
    }

    void start()
    {
        m_application->awaitPaintOf(nullptr);
        m_startBusy = CTimedApplication::threadTime();
        m_startAll = CTimedApplication::processTime();
        m_timer.start();
    }

    void finish()
    {
        while (!m_application->isPainted() && m_timer.elapsed() < Patience)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        m_whole.values.push_back(static_cast<double>(m_timer.nsecsElapsed()) / 1e6);
        const double busy = CTimedApplication::threadTime() - m_startBusy;
        m_busy.values.push_back(busy);
        m_others.values.push_back(CTimedApplication::processTime() - m_startAll - busy);
        for (const CTimedApplication::Handler &each : m_application->takeHandlers()) {
            m_handlers.values.push_back(each.milliseconds);
            m_handlersBusy.values.push_back(each.processor);
            if (each.processor > m_longest.processor)
                m_longest = each;
        }
    }

    void print(const QString &what)
    {
        std::printf("%s\n", qPrintable(what));
        m_whole.print("event to paint");
        m_busy.print("processor time of the GUI thread");
        m_others.print("processor time of the emulator");
        m_handlers.print("a handler");
        m_handlersBusy.print("the same, processor time");
        std::printf("  longest: %s\n", m_longest.what.constData());
    }

    CTimedApplication *m_application;
    const int m_widgets;
    CMainWindow m_window;
    CScreen *m_screens;
    QTimer m_tick; ///< wakes the event loop, so that a frame that never comes is no endless wait
    QElapsedTimer m_timer;
    double m_startBusy = 0;
    double m_startAll = 0;
    Figures m_whole;
    Figures m_busy;
    Figures m_others;
    Figures m_handlers;
    Figures m_handlersBusy;
    CTimedApplication::Handler m_longest{};
};
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("KIV_BIN_DIR", KIV_BIN_DIR);
    CTimedApplication application(argc, argv);
    const CProgramFolder folder; // a user's settings stay as they are
    if (argc > 2) {
        CCanvasBench bench(&application, folder, std::atoi(argv[1]));
        bench.drag(std::atoi(argv[2]), argc > 3);
        return 0;
    }
    {
        CCanvasBench bench(&application, folder, 60);
        bench.opening();
        bench.drag(1, false);
    }
    CCanvasBench bench(&application, folder, 500);
    bench.opening();
    bench.drag(1, false);
    bench.drag(1, true);
    bench.drag(1, false, 150);
    bench.drag(1, false, 400);
    bench.drag(100, false);
    bench.drag(100, true);
    return 0;
}
