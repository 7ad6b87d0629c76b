#include "CMultiPointItemView.h"

#include "CCommandChangeItemProperty.h"
#include "CItemModel.h"
#include "CPointHandle.h"
#include "CProjectModel.h"
#include "ICanvas.h"
#include "PointList.h"
#include "PropertyKey.h"

#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QUndoStack>

CMultiPointItemView::CMultiPointItemView(CItemModel *item, const ICanvas &canvas)
    : CItemView(item, canvas)
{
    setFlag(ItemIsFocusable); // for the keys
    updateBounds();
}

QVector<QPointF> CMultiPointItemView::points() const
{
    return PointList::ofItem(*item());
}

/// The line that is drawn, and what a closed one holds; the rest of the frame is not the item's.
QVector<QPainterPath> CMultiPointItemView::hitParts() const
{
    const PointList::Points points = PointList::ofItem(*item());
    if (points.size() < 2)
        return CItemView::hitParts();
    QPainterPath path;
    path.addPolygon(points);
    if (!PointList::isClosed(*item()))
        return {alongPath(path)};
    path.closeSubpath();
    return {path, alongPath(path)};
}

void CMultiPointItemView::onPropertyChanged(const QString &key)
{
    if (key == PropertyKey::PointList && areHandlesMade())
        updatePoints();
    CItemView::onPropertyChanged(key);
}

void CMultiPointItemView::makeHandles()
{
    CItemView::makeHandles();
    updatePoints();
}

/// A handle for each point.
void CMultiPointItemView::updatePoints()
{
    const int count = PointList::ofItem(*item()).size();
    while (m_points.size() > count)
        delete m_points.takeLast();
    while (m_points.size() < count)
        m_points.append(new CPointHandle(m_points.size(), this));
    showHandles(isSelected());
}

void CMultiPointItemView::updateHandles()
{
    CItemView::updateHandles();
    const PointList::Points points = PointList::ofItem(*item());
    for (int index = 0; index < m_points.size() && index < points.size(); ++index)
        m_points.at(index)->setPos(points.at(index));
}

void CMultiPointItemView::showHandles(bool visible)
{
    CItemView::showHandles(visible);
    for (CPointHandle *handle : qAsConst(m_points))
        handle->setVisible(visible && canvas().hasOwnHandles(*this) && !item()->isLocked());
}

void CMultiPointItemView::record(const QString &macroText, const QString &points)
{
    QUndoStack *stack = item()->project()->undoStack();
    stack->beginMacro(macroText);
    stack->push(new CCommandChangeItemProperty(item(), PropertyKey::PointList, points,
                                               item()->propertyValue(PropertyKey::PointList)));
    stack->endMacro();
}

void CMultiPointItemView::addPoint(const QPointF &position)
{
    PointList::Points points = PointList::ofItem(*item());
    points.insert(PointList::insertionIndex(points, position, PointList::isClosed(*item())),
                  position);
    record(tr("Add Point"), PointList::format(points));
}

void CMultiPointItemView::removePoint(int index)
{
    PointList::Points points = PointList::ofItem(*item());
    if (index >= points.size() || points.size() <= PointList::minimumCount(*item()))
        return;
    points.remove(index);
    record(tr("Remove Point"), PointList::format(points));
}

void CMultiPointItemView::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    m_pointAdded = event->modifiers().testFlag(Qt::ShiftModifier) && isResizable();
    if (m_pointAdded)
        addPoint(event->pos());
    else
        CItemView::mousePressEvent(event);
}

void CMultiPointItemView::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!std::exchange(m_pointAdded, false)) // else it would change the selection
        CItemView::mouseReleaseEvent(event);
}

void CMultiPointItemView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Control)
        setCursor(Qt::OpenHandCursor);
    event->ignore(); // the screen view has use for it as well
}

void CMultiPointItemView::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Control)
        setCursor(Qt::ArrowCursor);
    event->ignore();
}

void CMultiPointItemView::focusOutEvent(QFocusEvent *event)
{
    if (hasCursor())
        setCursor(Qt::ArrowCursor); // the release of the key goes elsewhere
    CItemView::focusOutEvent(event);
}
