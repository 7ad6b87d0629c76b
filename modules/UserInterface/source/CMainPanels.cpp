#include "CMainPanels.h"

#include "CMainWindow.h"
#include "COutputWindowView.h"
#include "CPlatformTable.h"
#include "CProjectModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetSelectionPanel.h"
#include "CWidgetSelectionView.h"

#include <QDockWidget>
#include <QTabWidget>
#include <QTreeView>

namespace {
constexpr int SideWidth = 280;       // pixels, of the left docks
constexpr int PropertiesWidth = 320; // pixels
constexpr int NavigatorHeight = 220;
constexpr int OutputHeight = 140;
} // namespace

CMainPanels::CMainPanels(CMainWindow *window) : QObject(window), m_window(window)
{
    window->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    m_explorer = new QTreeView;
    m_explorer->setHeaderHidden(true);
    m_explorerDock = makeDock("projectExplorer", m_explorer, Qt::LeftDockWidgetArea);
    m_screens = new QTabWidget(window);
    m_screens->setObjectName(QStringLiteral("viewProjectWindow"));
    window->setCentralWidget(m_screens);
    m_navigatorDock = makeDock("screenNavigator", new QWidget, Qt::RightDockWidgetArea);
    m_palette = new CWidgetSelectionPanel;
    m_paletteDock = makeDock("widgetSelector", m_palette, Qt::LeftDockWidgetArea);
    m_propertiesDock = makeDock("widgetProperties", new QWidget, Qt::RightDockWidgetArea);
    m_output = new COutputWindowView;
    m_outputDock = makeDock("outputWindow", m_output, Qt::BottomDockWidgetArea);
    layOut();
    retranslate();
    showPalette(nullptr);
}

QDockWidget *CMainPanels::makeDock(const char *name, QWidget *content, Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(m_window);
    dock->setObjectName(QString::fromLatin1(name));
    dock->setWidget(content);
    m_window->addDockWidget(area, dock);
    return dock;
}

/// What a first start shows; the settings put back what the user has made of it.
void CMainPanels::layOut()
{
    m_window->splitDockWidget(m_propertiesDock, m_navigatorDock, Qt::Vertical);
    m_window->resizeDocks({m_explorerDock, m_propertiesDock}, {SideWidth, PropertiesWidth},
                          Qt::Horizontal);
    m_window->resizeDocks({m_navigatorDock, m_outputDock}, {NavigatorHeight, OutputHeight},
                          Qt::Vertical);
}

void CMainPanels::retranslate()
{
    m_explorerDock->setWindowTitle(tr("Project Explorer"));
    m_navigatorDock->setWindowTitle(tr("Navigator"));
    m_paletteDock->setWindowTitle(tr("Widget Selection"));
    m_propertiesDock->setWindowTitle(tr("Widget Properties"));
    m_outputDock->setWindowTitle(tr("Output Window"));
}

void CMainPanels::showProject(CProjectModel *project)
{
    m_explorer->setModel(project);
    m_explorer->expandAll();
    showPalette(project);
}

/// The kinds that the project's chip has; without a project, those of the first chip.
void CMainPanels::showPalette(const CProjectModel *project)
{
    const CWidgetLibraryManager &manager = CWidgetLibraryManager::instance();
    const uint32_t chip = CPlatformTable::chipCode(project ? project->platform() : QString());
    m_palette->view()->setToolbox(manager.toolboxModel(chip), manager.libraryModel(chip));
}

void CMainPanels::showFirstScreen(CProjectModel *)
{
}

void CMainPanels::clear()
{
    m_explorer->setModel(nullptr);
    m_output->clear();
}

void CMainPanels::write(const QString &text)
{
    m_output->writeMessage(text);
}
