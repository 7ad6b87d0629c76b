#pragma once

#include "ItemStyle.h"

#include <QObject>

class CMainPanels;
class QAction;
class QMainWindow;
class QMenu;

/// What is taken over from an item other than by a plain paste: its look, which is kept beside the
/// clipboard until the program ends, and its place.
class CStyleActions final : public QObject
{
    Q_OBJECT

public:
    /// Adds its entries to the menu.
    CStyleActions(QMainWindow *window, CMainPanels *panels, QMenu *menu);

    QAction *copyAction() const { return m_copy; }
    QAction *pasteAction() const { return m_paste; }
    QAction *replaceAction() const { return m_replace; }
    /// Sets all texts again in the language that is now in force.
    void retranslate();

private:
    ItemStyle::Items items() const;
    void update();
    void copy();
    void paste();
    void replace();

    CMainPanels *const m_panels;
    QAction *const m_copy;
    QAction *const m_paste;
    QAction *const m_replace;
    ItemStyle::Style m_style;
};
