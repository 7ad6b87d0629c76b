#pragma once

#include <QObject>

class CMainPanels;
class QAction;
class QMainWindow;
class QMenu;

/// The menu of the guides: of all screens whether they are shown, and what is done to those of the
/// shown page. What is done to one of them stands in its own menu on the canvas.
class CGuideActions final : public QObject
{
    Q_OBJECT

public:
    /// Adds its menu to the View menu.
    CGuideActions(QMainWindow *window, CMainPanels *panels, QMenu *viewMenu);

    QAction *show() const { return m_show; } ///< guides are shown while it is checked
    QAction *clear() const { return m_clear; }
    /// Sets all texts again in the language that is now in force.
    void retranslate();

private:
    template<class Run>
    QAction *add(const Run &run);
    void addGuide(Qt::Orientation orientation);
    void update();

    QMainWindow *const m_window;
    CMainPanels *const m_panels;
    QMenu *const m_menu;
    QAction *m_show;
    QAction *m_addVertical;
    QAction *m_addHorizontal;
    QAction *m_lock;
    QAction *m_unlock;
    QAction *m_clear;
};
