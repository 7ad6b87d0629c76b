#include "CPointHandle.h"

#include "CItemView.h"
#include "CanvasRoles.h"

#include <QCursor>

namespace {
constexpr double Diameter = 8; ///< screen pixels
constexpr double HitSide = 12;
} // namespace

CPointHandle::CPointHandle(int index, CItemView *view) : QGraphicsItem(view), m_index(index)
{
    setData(CanvasRole::RoleKey, CanvasRole::Handle);
    setFlag(ItemIgnoresTransformations);
    setAcceptedMouseButtons(Qt::NoButton); // the scene knows what a press on it means
    setCursor(Qt::CrossCursor);
    setVisible(false);
    setZValue(1);
}

CItemView *CPointHandle::view() const
{
    return static_cast<CItemView *>(parentItem());
}

QRectF CPointHandle::boundingRect() const
{
    return {-HitSide / 2, -HitSide / 2, HitSide, HitSide};
}

QRectF CPointHandle::mark()
{
    return {-Diameter / 2, -Diameter / 2, Diameter, Diameter};
}
