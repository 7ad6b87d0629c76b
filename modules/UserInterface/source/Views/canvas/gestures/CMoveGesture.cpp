#include "CMoveGesture.h"

#include "CItemArrange.h"
#include "CItemModel.h"
#include "CItemView.h"
#include "CSnapping.h"
#include "ItemGeometry.h"
#include "ItemMove.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int DragDistance = 3; ///< screen pixels; a press that trembles is no drag
} // namespace

CMoveGesture::CMoveGesture(CItemView *pressed, const QVector<CItemView *> &others,
                           CSnapping &snapping, Snap snap, Moved moved)
    : m_snapping(snapping), m_snap(std::move(snap)), m_moved(std::move(moved))
{
    m_starts.append({pressed, {}, {}, {}});
    for (CItemView *view : others)
        m_starts.append({view, {}, {}, {}});
}

void CMoveGesture::start(const SGesturePointer &press)
{
    m_press = press.place;
    for (Start &each : m_starts) {
        const CItemModel &item = *each.view->item();
        each.place = each.view->pos();
        each.position = {item.x(), item.y()};
        each.second = {item.x2(), item.y2()};
    }
}

/// The pointer has gone far enough for a drag. Whether there is something to be dragged.
bool CMoveGesture::begin()
{
    CItemView *pressed = m_starts.constFirst().view;
    pressed->setSelected(true); // a press with Control has left that to the release
    if (pressed->item()->isLocked())
        return false;
    m_starts.erase(std::remove_if(m_starts.begin(), m_starts.end(),
                                  [](const Start &each) { return each.view->item()->isLocked(); }),
                   m_starts.end());
    m_recorder.begin(items(), CStartValues::geometryKeys());
    for (const CItemModel *item : items())
        m_frame |= CItemArrange::frameOf(*item);
    if (!m_snap)
        m_snapping.begin(items());
    return true;
}

QString CMoveGesture::update(const SGesturePointer &pointer)
{
    if (m_isOver || pointer.modifiers.testFlag(Qt::ShiftModifier))
        return {};
    if (!isUnderWay() && (pointer.travelled < DragDistance || !begin()))
        return {};
    if (m_snap)
        moveSnapped(pointer.place);
    else
        moveInLine(pointer);
    const CItemModel *item = m_starts.constFirst().view->item();
    return QObject::tr("%1, %2").arg(item->x()).arg(item->y());
}

QVector<CItemModel *> CMoveGesture::items() const
{
    QVector<CItemModel *> items;
    for (const Start &each : m_starts)
        items.append(each.view->item());
    return items;
}

void CMoveGesture::moveTo(const QPointF &delta) const
{
    for (const Start &each : m_starts) {
        CItemModel &item = *each.view->item();
        for (const auto &axis :
             ItemMove::axes(item, each.position, each.second, each.position + delta)) {
            if (item.propertyValue(axis.key).toDouble() != axis.value)
                item.setProperty(axis.key, axis.value);
            if (axis.second)
                item.setPropertyIfChanged(axis.secondKey, *axis.second);
        }
    }
}

/// Moves everything so that the pressed item lands on the nearest candidates.
void CMoveGesture::moveSnapped(const QPointF &pointer) const
{
    const QPointF start = m_starts.constFirst().place;
    const QPointF delta = m_snap(start + pointer - m_press, items()) - start;
    moveTo(delta);
    // Edges and centres of others may lie between whole units. The views show that; what is
    // recorded are the whole numbers that the model holds.
    for (const Start &each : m_starts)
        each.view->setPos(each.place + delta);
}

/// Edges and the middle of all that move come to lie in line with others.
void CMoveGesture::moveInLine(const SGesturePointer &pointer) const
{
    const QPointF start = m_starts.constFirst().position;
    const auto whole = [](const QPointF &place) {
        return QPointF(double(roundedToInteger(place.x())), double(roundedToInteger(place.y())));
    };
    const auto frameAt = [&](const QPointF &offset) {
        return m_frame.translated(whole(start + offset) - start);
    };
    moveTo(m_snapping.snapped(frameAt, pointer.place - m_press, pointer.modifiers));
}

void CMoveGesture::putBack()
{
    m_isOver = true;
    m_recorder.restore();
    for (const Start &each : m_starts)
        each.view->updatePosition();
}

void CMoveGesture::commit()
{
    const QVector<CItemModel *> changed = m_recorder.changedItems();
    QVector<QPointF> places;
    for (const CItemModel *item : changed)
        places.append(QPointF(item->x(), item->y()));
    putBack();
    if (!changed.isEmpty())
        m_moved(changed, places);
}

void CMoveGesture::cancel()
{
    putBack();
}
