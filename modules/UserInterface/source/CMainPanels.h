#pragma once

#include <QObject>

class CMainWindow;
class COutputWindowView;
class CProjectModel;
class CWidgetSelectionPanel;
class QDockWidget;
class QTabWidget;
class QTreeView;

/// The docks around the screens and the screens themselves: makes them, lays them out, shows the
/// open project in them.
class CMainPanels : public QObject
{
    Q_OBJECT

public:
    /// Makes all of them, in the order in which they are stacked, children of the window.
    explicit CMainPanels(CMainWindow *window);

    QDockWidget *explorerDock() const { return m_explorerDock; }
    QDockWidget *paletteDock() const { return m_paletteDock; }
    QDockWidget *propertiesDock() const { return m_propertiesDock; }
    QDockWidget *outputDock() const { return m_outputDock; }
    QTabWidget *screens() const { return m_screens; }

    void showProject(CProjectModel *project);
    void showFirstScreen(CProjectModel *project);
    void clear();
    void write(const QString &text); ///< into the output window
    void retranslate();

private:
    void showPalette(const CProjectModel *project);
    QDockWidget *makeDock(const char *name, QWidget *content, Qt::DockWidgetArea area);
    void layOut();

    CMainWindow *const m_window;
    QTreeView *m_explorer;
    QTabWidget *m_screens;
    COutputWindowView *m_output;
    CWidgetSelectionPanel *m_palette;
    QDockWidget *m_explorerDock;
    QDockWidget *m_navigatorDock;
    QDockWidget *m_paletteDock;
    QDockWidget *m_propertiesDock;
    QDockWidget *m_outputDock;
};
