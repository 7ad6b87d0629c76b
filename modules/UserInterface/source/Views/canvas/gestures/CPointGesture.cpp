#include "CPointGesture.h"

#include "CItemModel.h"
#include "CMultiPointItemView.h"
#include "PointList.h"
#include "PropertyKey.h"

CPointGesture::CPointGesture(CMultiPointItemView *view, int index) : m_view(view), m_index(index)
{
}

void CPointGesture::start(const SGesturePointer &press)
{
    if (press.modifiers.testFlag(Qt::ControlModifier)) {
        m_view->removePoint(m_index);
        return;
    }
    const PointList::Points points = PointList::ofItem(*m_view->item());
    m_grip = press.place - m_view->mapToScene(points.value(m_index));
    m_recorder.begin({m_view->item()}, {PropertyKey::PointList});
}

QString CPointGesture::update(const SGesturePointer &pointer)
{
    PointList::Points points = PointList::ofItem(*m_view->item());
    if (!isUnderWay() || m_index >= points.size())
        return {};
    points[m_index] = m_view->mapFromScene(pointer.place - m_grip);
    const QPointF place = m_view->mapToScene(points.at(m_index));
    m_view->item()->setPropertyIfChanged(PropertyKey::PointList, PointList::format(points));
    return QObject::tr("%1, %2").arg(qRound(place.x())).arg(qRound(place.y()));
}

void CPointGesture::commit()
{
    m_recorder.record(QString());
}

void CPointGesture::cancel()
{
    m_recorder.restore();
}
