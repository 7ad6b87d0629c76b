#include "CMainPanels.h"

#include "CBatchEditView.h"
#include "CBatchTab.h"
#include "CExplorerPanel.h"
#include "CMainWindow.h"
#include "COutputWindowView.h"
#include "CPlatformTable.h"
#include "CProjectExplorerView.h"
#include "CProjectModel.h"
#include "CProjectSelection.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenNavigator.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CStatusBar.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetPropertiesView.h"
#include "CWidgetSelectionPanel.h"
#include "CWidgetSelectionView.h"
#include "ItemTree.h"

#include <QAbstractItemView>
#include <QDockWidget>
#include <QUndoStack>

#include <algorithm>
#include <functional>

namespace {
constexpr int SideWidth = 308; // pixels; three columns of the palette, and the tabs at the right
constexpr int NavigatorHeight = 220;
constexpr int OutputHeight = 120;
constexpr int LeastHeight = 24; // of a list, so that the window fits on a small screen
} // namespace

CMainPanels::CMainPanels(CMainWindow *window)
    : QObject(window), m_window(window), m_selection(new CProjectSelection(this))
{
    window->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    makePanels();
    layOut();
    connectPanels();
    connectSelection();
    retranslate();
    showPalette();
}

void CMainPanels::makePanels()
{
    auto *explorer = new CExplorerPanel;
    m_explorer = explorer->view();
    m_explorerDock = makeDock("projectExplorer", explorer, Qt::LeftDockWidgetArea);
    m_screens = new CScreen(m_window);
    m_screens->setObjectName(QStringLiteral("viewProjectWindow"));
    m_window->setCentralWidget(m_screens);
    m_navigator = new CScreenNavigator;
    m_navigatorDock = makeDock("screenNavigator", m_navigator, Qt::RightDockWidgetArea);
    m_palette = new CWidgetSelectionPanel;
    m_paletteDock = makeDock("widgetSelector", m_palette, Qt::LeftDockWidgetArea);
    m_properties = new CWidgetPropertiesView;
    m_propertiesDock = makeDock("widgetProperties", m_properties, Qt::RightDockWidgetArea);
    m_batch = new CBatchEditView;
    m_batchDock = makeDock("batchEdit", m_batch, Qt::RightDockWidgetArea);
    m_batchTab = new CBatchTab(m_batchDock, m_propertiesDock);
    connect(m_batchDock, &QDockWidget::visibilityChanged, m_batch, &CBatchEditView::setSeen);
    m_output = new COutputWindowView;
    m_outputDock = makeDock("outputWindow", m_output, Qt::BottomDockWidgetArea);
}

QDockWidget *CMainPanels::makeDock(const char *name, QWidget *content, Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(m_window);
    dock->setObjectName(QString::fromLatin1(name));
    dock->setWidget(content);
    for (QAbstractItemView *each : dock->findChildren<QAbstractItemView *>())
        each->setMinimumHeight(LeastHeight);
    m_window->addDockWidget(area, dock);
    return dock;
}

/// What a first start shows, with half of a narrow window for the canvas; the settings put back
/// what the user has made of it.
void CMainPanels::layOut()
{
    m_window->splitDockWidget(m_propertiesDock, m_navigatorDock, Qt::Vertical);
    m_window->tabifyDockWidget(m_propertiesDock, m_batchDock);
    m_propertiesDock->raise();
    shareSpace();
}

void CMainPanels::shareSpace()
{
    const int half = m_window->height() / 2;
    const int quarter = m_window->width() / 4;
    const int side = std::min(SideWidth, quarter);
    m_window->resizeDocks({m_explorerDock, m_propertiesDock}, {side, side}, Qt::Horizontal);
    m_window->resizeDocks({m_explorerDock, m_paletteDock}, {half, half}, Qt::Vertical);
    m_window->resizeDocks({m_propertiesDock, m_navigatorDock},
                          {m_window->height() - NavigatorHeight, NavigatorHeight}, Qt::Vertical);
    m_window->resizeDocks({m_outputDock}, {std::min(OutputHeight, m_window->height() / 5)},
                          Qt::Vertical);
}

void CMainPanels::connectPanels()
{
    connect(m_explorer, &CProjectExplorerView::message, this, &CMainPanels::report);
    connect(m_navigator, &CScreenNavigator::screenActivated, m_screens, &CScreen::openScreen);
    connect(m_screens, &CScreen::viewResized, m_navigator->viewport(),
            QOverload<>::of(&QWidget::update));
    connect(m_screens, &CScreen::currentScreenChanged, m_navigator,
            &CScreenNavigator::setCurrentScreen);
    connect(m_screens, &CScreen::currentScreenChanged, m_explorer,
            &CProjectExplorerView::setShownScreen);
    connect(m_screens, &CScreen::renderErrors, this,
            [this](const CScreenModel *screen, const QString &errors) {
                m_output->writeRenderErrors(screen->name(), errors);
            });
    connect(m_screens, &CScreen::liveGeometry, m_properties,
            &CWidgetPropertiesView::geometryChanged);
    connect(m_screens, &CScreen::message, this, &CMainPanels::report);
    connect(m_properties, &CWidgetPropertiesView::message, this, &CMainPanels::report);
    connect(m_batch, &CBatchEditView::message, this, &CMainPanels::report);
    connect(palette(), &CWidgetSelectionView::placeWanted, this, &CMainPanels::placeWidget);
    connect(m_output, &COutputWindowView::itemActivated, this, &CMainPanels::showItem);
}

void CMainPanels::connectStatusBar(CStatusBar *bar)
{
    connect(m_screens, &CScreen::cursorMoved, bar, &CStatusBar::receiveMouseMoveUpdate);
    connect(m_screens, &CScreen::widgetCountChanged, bar, &CStatusBar::receiveWidgetCountUpdate);
    connect(m_screens, &CScreen::bitmapCountChanged, bar, &CStatusBar::receiveBitmapCountUpdate);
    connect(m_screens, &CScreen::hiddenCountChanged, bar, &CStatusBar::receiveHiddenCountUpdate);
    connect(m_screens, &CScreen::memoryUsageChanged, bar, &CStatusBar::receiveMemoryUsage);
    connect(m_screens, &CScreen::currentScreenChanged, bar, [bar](const CScreenModel *screen) {
        if (!screen) // what it said was about the one that was shown
            bar->resetStatusBar();
    });
}

void CMainPanels::retranslate()
{
    m_explorerDock->setWindowTitle(tr("Project Explorer"));
    m_navigatorDock->setWindowTitle(tr("Navigator"));
    m_paletteDock->setWindowTitle(tr("Widget Selection"));
    m_propertiesDock->setWindowTitle(tr("Widget Properties"));
    m_batchDock->setWindowTitle(tr("Batch Edit"));
    m_outputDock->setWindowTitle(tr("Output Window"));
}

void CMainPanels::showProject(CProjectModel *project)
{
    m_project = project;
    m_selection->setProject(project);
    m_explorer->setProject(project);
    m_screens->setProject(project);
    m_navigator->setProject(project);
    m_properties->setProject(project);
    m_batch->setProject(project);
    connect(project, &CProjectModel::fontsChanged, this, &CMainPanels::refresh);
}

void CMainPanels::clear()
{
    m_project = nullptr;
    m_selection->setProject(nullptr);
    m_screens->setProject(nullptr);
    m_navigator->setProject(nullptr);
    m_properties->setProject(nullptr);
    m_batch->setProject(nullptr);
    m_explorer->setProject(nullptr);
    m_output->clear();
    Q_EMIT selectionShown();
}

void CMainPanels::refresh()
{
    m_screens->updateRepaint();
    m_navigator->refreshAll();
    m_properties->refresh();
    m_batch->refresh();
}

/// The kinds of the first chip, whatever the project's: the palette is the same for all projects.
void CMainPanels::showPalette()
{
    const CWidgetLibraryManager &manager = CWidgetLibraryManager::instance();
    palette()->setToolbox(manager.toolboxModel(CPlatformTable::chipCode(QString())));
}

CWidgetSelectionView *CMainPanels::palette() const
{
    return m_palette->view();
}

void CMainPanels::placeWidget(const QString &type)
{
    CScreenView *view = m_screens->currentView();
    if (!view) {
        report(tr("Open a page first: the widget is placed in the middle of it."));
        return;
    }
    const int before = m_project->undoStack()->index();
    view->placeInMiddle(type);
    if (m_project && m_project->undoStack()->index() > before)
        palette()->noteUsed(type);
}

/// Leads from an error message to the item that it is about.
void CMainPanels::showItem(const QString &screenName, quint32 id)
{
    for (int row = 0; m_project && row < m_project->screenCount(); ++row) {
        CScreenModel *screen = m_project->screen(row);
        if (!screen || screen->name() != screenName)
            continue;
        CItemModel *item = findItem(*screen, [screen, id](const CItemModel &each) {
            return each.id() == id && &each != screen;
        });
        if (!item)
            continue; // another screen may have the same name
        reveal(item);
        return;
    }
}

void CMainPanels::finishEdits()
{
    m_batch->commit();
    QWidget *above = m_window->focusWidget();
    if (qobject_cast<QAbstractItemView *>(above))
        return; // no editor is open
    while (above && !qobject_cast<QAbstractItemView *>(above))
        above = above->parentWidget();
    if (above)
        above->setFocus(); // its editor commits when it is left
}

/// The palette's filter is no editor: nothing of the project is typed there.
bool CMainPanels::isEditorOpen() const
{
    if (m_batch->isBeingEdited())
        return true;
    const QWidget *focus = m_window->focusWidget();
    if (!focus || qobject_cast<const QAbstractItemView *>(focus))
        return false;
    for (const QWidget *above = focus; above; above = above->parentWidget()) {
        if (qobject_cast<const QAbstractItemView *>(above))
            return true;
    }
    return false;
}

bool CMainPanels::isGestureActive() const
{
    return m_screens->isGestureActive() || m_explorer->isDragging();
}

void CMainPanels::cancelGestures()
{
    m_properties->cancelDrag();
    m_batch->cancel();
    if (CScreenView *view = m_screens->currentView())
        view->screenScene()->cancelGesture();
    if (m_explorer->isDragging())
        m_explorer->setProject(m_project); // puts the page back that is out of the model
}

void CMainPanels::write(const QString &text)
{
    m_output->writeMessage(text);
}

void CMainPanels::report(const QString &text)
{
    write(text);
    if (m_outputDock->isHidden())
        m_outputDock->show();
}

void CMainPanels::showFindings(const QString &screenName, const QString &errors)
{
    m_output->writeRenderErrors(screenName, errors);
    if (m_outputDock->isHidden())
        m_outputDock->show();
}
