#pragma once

#include <QVector>

class CItemModel;
class CMainPanels;
class CMenuBar;

/// The places that the shown page is zoomed to.
class CZoomCommands
{
public:
    /// Neither is owned.
    CZoomCommands(CMainPanels *panels, CMenuBar *menus) : m_panels(panels), m_menus(menus) {}

    void toSelection();
    void to(const QVector<CItemModel *> &items); ///< of the shown page; nothing for none
    void toPrevious();

private:
    CMainPanels *const m_panels;
    CMenuBar *const m_menus;
};
