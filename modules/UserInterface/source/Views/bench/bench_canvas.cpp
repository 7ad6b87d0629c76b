// The canvas at 1024 x 768 without a display: opening a screen, the handlers of a drag, and the
// time from a mouse move to the new frame painted. Run in the folder of the programs.
#include "CEditorState.h"
#include "CEmulatorAdapter.h"
#include "CProjectModel.h"
#include "CScreenCompositeView.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetModel.h"
#include "PropertyKey.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMouseEvent>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {
constexpr uint32_t Chip = 0x110;
constexpr QSize Resolution(1024, 768);
const char *const Kinds[] = {"Kiv_Button_T", "Kiv_Text_T", "Kiv_Rectangle_T", "Kiv_Circle_T",
                             "Kiv_Progress_T"};

std::unique_ptr<CProjectModel> projectWith(int widgets)
{
    auto project = std::make_unique<CProjectModel>();
    project->newProject({{PropertyKey::Platform, QStringLiteral("QX110")},
                         {PropertyKey::Width, QString::number(Resolution.width())},
                         {PropertyKey::Height, QString::number(Resolution.height())}});
    for (int index = 0; index < widgets; ++index) {
        auto *item = new CWidgetModel(QString::fromLatin1(Kinds[index % 5]), project->library(),
                                      project.get());
        item->setProperty(PropertyKey::X, 10 + (index % 25) * 39, CItemModel::Notify::No);
        item->setProperty(PropertyKey::Y, 10 + (index / 25) * 36, CItemModel::Notify::No);
        project->screen(0)->appendRow(item);
    }
    return project;
}

struct Times
{
    std::vector<double> values; // milliseconds

    double at(double share)
    {
        std::sort(values.begin(), values.end());
        return values[static_cast<size_t>(share * static_cast<double>(values.size() - 1))];
    }
    void print(const char *what)
    {
        std::printf("%-44s median %7.2f ms   worst %7.2f ms\n", what, at(0.5), at(1.0));
    }
};

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void send(CScreenView &view, QEvent::Type type, QPointF scenePos, Qt::MouseButton button)
{
    const QPoint pos = view.mapFromScene(scenePos);
    const Qt::MouseButtons buttons =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos), button, buttons, {});
    QCoreApplication::sendEvent(view.viewport(), &event);
}

void measureOpening(int widgets)
{
    const auto project = projectWith(widgets);
    Times times;
    for (int round = 0; round < 11; ++round) {
        QElapsedTimer timer;
        timer.start();
        CScreenCompositeView page(project->screen(0));
        page.resize(1280, 900);
        page.show();
        QCoreApplication::processEvents();
        page.grab();
        times.values.push_back(milliseconds(timer));
    }
    times.print(qPrintable(QStringLiteral("open and paint %1 widgets").arg(widgets)));
}

void measureDrag(int widgets, int selected)
{
    const auto project = projectWith(widgets);
    CScreenCompositeView page(project->screen(0));
    page.resize(1280, 900);
    page.show();
    QCoreApplication::processEvents();
    CScreenView &view = *page.view();
    QVector<CItemModel *> items;
    for (int row = 0; row < selected; ++row)
        items.append(project->screen(0)->childItem(row));
    view.screenScene()->selectModelItems(items);

    bool painted = false;
    QObject::connect(CEmulatorAdapter::instance(), &CEmulatorAdapter::emulatorFrameCallback, &page,
                     [&painted] { painted = true; });
    Times handler;
    Times whole;
    const QPointF start(42, 28); // in the first item, off its handles
    send(view, QEvent::MouseButtonPress, start, Qt::LeftButton);
    for (int step = 1; step <= 60; ++step) {
        painted = false;
        QElapsedTimer timer;
        timer.start();
        send(view, QEvent::MouseMove, start + QPointF(step * 5 % 700, step * 3 % 400),
             Qt::NoButton);
        handler.values.push_back(milliseconds(timer));
        while (!painted && timer.elapsed() < 200)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        view.viewport()->repaint();
        whole.values.push_back(milliseconds(timer));
    }
    send(view, QEvent::MouseButtonRelease, start, Qt::LeftButton);
    const QString what = QStringLiteral("drag %1 of %2 widgets: ").arg(selected).arg(widgets);
    handler.print(qPrintable(what + QStringLiteral("handler")));
    whole.print(qPrintable(what + QStringLiteral("to paint")));
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QDir::setCurrent(QStringLiteral(KIV_BIN_DIR));
    CWidgetLibraryManager::instance().initialise(QStringLiteral("widget-library.xml"), {Chip});
    CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
    if (!adapter->registerEmulator(QDir::current().absoluteFilePath("kiv_render.lua"))) {
        std::fprintf(stderr, "kiv_render.lua was not found\n");
        return 2;
    }
    adapter->emulatorStart(Chip);
    adapter->emulatorConfigScreen(Resolution.width(), Resolution.height());
    CEditorState::instance()->setSnapToGrid(false); // else not every move changes something
    measureOpening(60);
    measureOpening(500);
    measureDrag(60, 1);
    measureDrag(500, 1);
    measureDrag(500, 100);
    adapter->emulatorStop();
    return 0;
}
