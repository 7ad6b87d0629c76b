#include "CZoomCommands.h"

#include "CMainPanels.h"
#include "CMenuBar.h"
#include "CScreen.h"
#include "CScreenView.h"
#include "CZoomComboWidget.h"
#include "ItemGeometry.h"
#include "ZoomRule.h"

#include <algorithm>

namespace {
constexpr double ShareOfView = 0.8; // that the items take up
} // namespace

void CZoomCommands::toSelection()
{
    if (const CScreenView *view = m_panels->screens()->currentView())
        to(view->selectedItems());
}

void CZoomCommands::to(const QVector<CItemModel *> &items)
{
    CScreenView *view = m_panels->screens()->currentView();
    if (!view || items.isEmpty())
        return;
    const QRectF frame = ItemGeometry::frameOf(items);
    const double across = view->viewport()->width() / std::max(1.0, frame.width());
    const double down = view->viewport()->height() / std::max(1.0, frame.height());
    const int percent = static_cast<int>(std::min(across, down) * ShareOfView * 100);
    m_menus->zoomWidget()->setZoom(ZoomRule::clamped(percent), CZoomComboWidget::FreeValue);
    view->reveal(frame);
    view->centerOn(frame.center());
}

void CZoomCommands::toPrevious()
{
    if (CScreenView *view = m_panels->screens()->currentView())
        view->showPreviousZoom();
}
