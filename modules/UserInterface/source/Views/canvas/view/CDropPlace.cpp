#include "CDropPlace.h"

#include "CEditorState.h"
#include "CItemArrange.h"
#include "CItemModel.h"
#include "CScreenScene.h"
#include "ItemGeometry.h"

void CDropPlace::setItems(const QVector<CItemModel *> &items)
{
    m_moving = items;
    m_frame = {};
    for (const CItemModel *each : items)
        m_frame |= CItemArrange::frameOf(*each);
    if (!items.isEmpty())
        m_position = {items.constFirst()->x(), items.constFirst()->y()};
}

void CDropPlace::setNew(const CItemModel &item)
{
    m_moving.clear();
    m_frame = CItemArrange::frameOf(item);
    m_position = {item.x(), item.y()};
}

QPointF CDropPlace::at(const QPointF &scenePos, Qt::KeyboardModifiers modifiers) const
{
    if (CEditorState::instance()->isSnapToGrid())
        return m_scene.snapped(scenePos, m_moving);
    if (m_frame.isNull())
        return scenePos;
    CSnapping &snapping = m_scene.snapping();
    if (!snapping.isBegun())
        snapping.begin(m_moving);
    const auto frameAt = [this](const QPointF &offset) {
        const QPointF at = m_position + offset;
        const QPointF whole(double(roundedToInteger(at.x())), double(roundedToInteger(at.y())));
        return m_frame.translated(whole - m_position);
    };
    return m_position + snapping.snapped(frameAt, scenePos - m_position, modifiers);
}
