// Commands on many widgets of one screen, in the whole program with all panels connected and
// without a display. A time is the longest that the GUI thread was busy with one event, the
// command's own or one that followed from it until everything was at rest: how long the window
// stood still.
//   bench_bulk --benchmark_filter='delete/.*'
#include "CEmulatorAdapter.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CTimedApplication.h"
#include "ProgramFolder.h"

#include <QAction>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QUndoStack>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

namespace {
constexpr QSize WindowSize(1900, 1080);
constexpr int Columns = 100;
constexpr int Pitch = 20; ///< scene units; the widgets stand side by side
const char *const Kinds[] = {
    "Kiv_Button_T width=\"16\" height=\"12\"", "Kiv_Rectangle_T width=\"16\" height=\"12\"",
    "Kiv_Circle_T radius=\"7\"", "Kiv_Progress_T width=\"16\" height=\"6\""};

QByteArray screenWith(int widgets, int firstId)
{
    QByteArray xml = "<Kiv_Screen_T>";
    for (int index = 0; index < widgets; ++index)
        xml +=
            QStringLiteral("<%1 name=\"w%2\" id=\"%3\" x_coordinate=\"%4\" y_coordinate=\"%5\"/>")
                .arg(QLatin1String(Kinds[index % 4]))
                .arg(index + 1)
                .arg(firstId + index)
                .arg(10 + index % Columns * Pitch)
                .arg(10 + index / Columns * Pitch)
                .toUtf8();
    return xml + "</Kiv_Screen_T>\n";
}

/// A screen of so many widgets, and so many screens of 95 more.
QByteArray projectWith(int widgets, int others)
{
    QByteArray xml = "<Kiv_Project_T project_name=\"bench\" platform=\"QX110\" width=\"2048\" "
                     "height=\"1100\">" +
                     screenWith(widgets, 1);
    for (int screen = 0; screen < others; ++screen)
        xml += screenWith(95, 1 + widgets + screen * 95);
    return xml + "</Kiv_Project_T>";
}

class CEditor
{
public:
    CEditor(CTimedApplication *application, const CProgramFolder &folder, int widgets, int others)
        : m_application(application)
    {
        const QString file = folder.path(QByteArray::number(widgets + others) + ".nyx");
        writeFile(file, projectWith(widgets, others));
        m_window.setAutosaveInterval(0);
        m_window.resize(WindowSize);
        m_window.show();
        m_window.openProjectFile(file);
        m_window.activateWindow();
        view()->setFocus();
        settle();
    }
    ~CEditor() { m_window.closeProject(); }

    CScreenView *view() const { return m_window.findChild<CScreen *>()->currentView(); }
    CScreenModel *screen() const { return m_window.project()->screen(0); }
    QUndoStack *stack() const { return m_window.project()->undoStack(); }

    void trigger(CMenuBar::EAction action) { m_window.actions()->action(action)->trigger(); }
    void press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(view(), &event);
    }
    void send(QEvent::Type type, const QPointF &scenePos, Qt::MouseButton button)
    {
        const QPoint pos = view()->mapFromScene(scenePos);
        const bool isHeld = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, pos, view()->viewport()->mapToGlobal(pos), button,
                          isHeld ? Qt::LeftButton : Qt::NoButton, {});
        QCoreApplication::sendEvent(view()->viewport(), &event);
    }
    void selectEvery(int step)
    {
        QVector<CItemModel *> items;
        for (int row = 0; row < screen()->rowCount(); row += step)
            items.append(screen()->childItem(row));
        view()->screenScene()->selectModelItems(items);
        Q_EMIT view()->screenScene()->QGraphicsScene::selectionChanged();
    }

    /// Until neither the emulator nor the window have anything to do.
    void settle()
    {
        QElapsedTimer quiet;
        quiet.start();
        while (quiet.elapsed() < 250) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
            if (CEmulatorAdapter::instance()->isBusy())
                quiet.start();
        }
    }

    /// The longest that the GUI thread is busy at a time: seconds of its processor time.
    double longest(const std::function<void()> &act)
    {
        m_application->takeHandlers();
        const double before = CTimedApplication::threadTime();
        act();
        double most = CTimedApplication::threadTime() - before;
        m_what = "the command";
        settle();
        for (const CTimedApplication::Handler &each : m_application->takeHandlers()) {
            if (each.processor > most) {
                most = each.processor;
                m_what = each.what;
            }
        }
        return most / 1e3;
    }
    const QByteArray &what() const { return m_what; }

    /// As it was opened, nothing selected.
    void restore()
    {
        trigger(CMenuBar::SelectNone);
        stack()->setIndex(0);
        stack()->clear();
        trigger(CMenuBar::SelectNone);
        settle();
    }

private:
    CTimedApplication *m_application;
    CMainWindow m_window;
    QByteArray m_what;
};

using Act = std::function<void(CEditor &)>;

void all(CEditor &editor)
{
    editor.trigger(CMenuBar::SelectAll);
}
void half(CEditor &editor)
{
    editor.selectEvery(2);
}
Act action(CMenuBar::EAction which)
{
    return [which](CEditor &editor) { editor.trigger(which); };
}
Act both(const Act &first, const Act &second)
{
    return [first, second](CEditor &editor) {
        first(editor);
        second(editor);
    };
}

struct Operation
{
    const char *name;
    Act prepare;
    Act act;
    bool isCommand; ///< its undo and redo are measured too
};

std::vector<Operation> operations()
{
    const Act nothing = [](CEditor &) {};
    const Act grouped = both(all, action(CMenuBar::Group));
    return {
        {"select_all", nothing, all, false},
        {"select_none", all, action(CMenuBar::SelectNone), false},
        {"select_inverse", half, action(CMenuBar::SelectInverse), false},
        {"copy", all, action(CMenuBar::Copy), false},
        {"cut", all, action(CMenuBar::Cut), true},
        {"delete", all, action(CMenuBar::Delete), true},
        {"delete_every_other", half, action(CMenuBar::Delete), true},
        {"paste", both(all, action(CMenuBar::Copy)), action(CMenuBar::Paste), true},
        {"group", all, action(CMenuBar::Group), true},
        {"group_every_other", half, action(CMenuBar::Group), true},
        {"ungroup", grouped, action(CMenuBar::Ungroup), true},
        {"move_by_key", all, [](CEditor &editor) { editor.press(Qt::Key_Right); }, true},
        {"move_group_by_key", grouped, [](CEditor &editor) { editor.press(Qt::Key_Right); }, true},
        {"to_front", half, action(CMenuBar::BringToFront), true},
        {"to_back", half, action(CMenuBar::SendToBack), true},
        {"forward", half, action(CMenuBar::BringForward), true},
        {"backward", half, action(CMenuBar::SendBackward), true},
        {"lock", all, action(CMenuBar::LockUnlock), true},
        {"press_selected", all,
         [](CEditor &editor) {
             editor.send(QEvent::MouseButtonPress, {18, 16}, Qt::LeftButton);
             editor.send(QEvent::MouseButtonRelease, {18, 16}, Qt::LeftButton);
         },
         false},
        {"drag_step",
         [](CEditor &editor) {
             all(editor);
             editor.send(QEvent::MouseButtonPress, {18, 16}, Qt::LeftButton);
             editor.send(QEvent::MouseMove, {28, 26}, Qt::NoButton);
         },
         [](CEditor &editor) {
             editor.send(QEvent::MouseMove, {38, 36}, Qt::NoButton);
         },
         false},
        {"drop",
         [](CEditor &editor) {
             all(editor);
             editor.send(QEvent::MouseButtonPress, {18, 16}, Qt::LeftButton);
             editor.send(QEvent::MouseMove, {28, 26}, Qt::NoButton);
         },
         [](CEditor &editor) {
             editor.send(QEvent::MouseButtonRelease, {28, 26}, Qt::LeftButton);
         },
         true},
        {"rubber_band",
         [](CEditor &editor) {
             editor.send(QEvent::MouseButtonPress, {1, 1}, Qt::LeftButton);
         },
         [](CEditor &editor) {
             editor.send(QEvent::MouseMove, {2040, 1090}, Qt::NoButton);
         },
         false},
    };
}

void release(CEditor &editor)
{
    editor.send(QEvent::MouseButtonRelease, {2040, 1090}, Qt::LeftButton);
}

void measure(benchmark::State &state, CEditor &editor, const Operation &operation,
             const Act &between, const Act &measured)
{
    for (auto each : state) {
        Q_UNUSED(each);
        operation.prepare(editor);
        between(editor);
        editor.settle();
        state.SetIterationTime(editor.longest([&] { measured(editor); }));
        release(editor);
        editor.restore();
    }
    state.SetLabel(editor.what().toStdString());
}
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("KIV_BIN_DIR", KIV_BIN_DIR);
    CTimedApplication application(argc, argv);
    const CProgramFolder folder; // a user's settings stay as they are
    benchmark::Initialize(&argc, argv);

    std::unique_ptr<CEditor> editor; // one at a time is open
    QPair<int, int> opened;
    const auto add = [&](const Operation &operation, const char *which, int widgets, int others,
                         const Act &between, const Act &measured) {
        std::string name = operation.name;
        name = name + which + '/' + std::to_string(widgets) + (others ? "_of_100000" : "");
        benchmark::RegisterBenchmark(
            name.c_str(),
            [&, operation, widgets, others, between, measured](benchmark::State &state) {
                if (!editor || opened != qMakePair(widgets, others)) {
                    editor.reset();
                    editor = std::make_unique<CEditor>(&application, folder, widgets, others);
                    opened = {widgets, others};
                }
                measure(state, *editor, operation, between, measured);
            })
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    };
    const Act nothing = [](CEditor &) {};
    const Act undo = [](CEditor &each) { each.stack()->undo(); };
    const Act redo = [](CEditor &each) { each.stack()->redo(); };
    for (const int widgets : {1000, 5000}) {
        for (const Operation &each : operations()) {
            add(each, "", widgets, 0, nothing, each.act);
            if (!each.isCommand)
                continue;
            add(each, "_undo", widgets, 0, each.act, undo);
            add(each, "_redo", widgets, 0, both(each.act, undo), redo);
        }
    }
    add(operations().front(), "", 5000, 1000, nothing, all);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
