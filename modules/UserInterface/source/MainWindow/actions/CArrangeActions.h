#pragma once

#include "CItemArrange.h"

#include <QObject>

#include <array>

class CItemModel;
class CMainPanels;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

/// The Arrange menu and its tool bar: aligns, distributes, sizes and centres what is selected on
/// the shown page. What cannot be done is disabled, and its status tip says why.
class CArrangeActions final : public QObject
{
    Q_OBJECT

public:
    /// Fills the menu, and adds the tool bar to the window.
    CArrangeActions(QMainWindow *window, CMainPanels *panels, QMenu *menu);

    QAction *action(CItemArrange::EWhat what) const { return m_actions.at(size_t(what)); }
    QAction *toPage() const { return m_toPage; } ///< alignments are to the page while it is checked
    /// Checked while one of the selected items is the key item; alignments are to it then.
    QAction *toKey() const { return m_toKey; }
    QToolBar *toolBar() const { return m_toolBar; }
    /// Sets all texts again in the language that is now in force.
    void retranslate();
    /// The selection, or what is locked of it, has changed.
    void update();

private:
    void makeActions();
    void fill(QMenu *menu);
    void makeToolBar();
    QVector<CItemModel *> items() const;
    CItemModel *keyItem() const;
    void chooseKey(bool isWanted);
    CItemArrange::EReference reference() const;
    void run(CItemArrange::EWhat what);

    QMainWindow *const m_window;
    CMainPanels *const m_panels;
    std::array<QAction *, CItemArrange::WhatCount> m_actions{};
    QAction *m_toPage = nullptr;
    QAction *m_toKey = nullptr;
    QMenu *m_distribute = nullptr;
    QMenu *m_size = nullptr;
    QMenu *m_centre = nullptr;
    QToolBar *m_toolBar = nullptr;
    int m_gap = 8; ///< that was typed last, pixels
};
