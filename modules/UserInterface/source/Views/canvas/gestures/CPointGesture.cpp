#include "CPointGesture.h"

#include "CItemModel.h"
#include "CMultiPointItemView.h"
#include "CSnapping.h"
#include "ItemGeometry.h"
#include "PointList.h"
#include "PropertyKey.h"

CPointGesture::CPointGesture(CMultiPointItemView *view, int index, CSnapping &snapping)
    : m_view(view), m_index(index), m_snapping(snapping)
{
}

void CPointGesture::start(const SGesturePointer &press)
{
    if (press.modifiers.testFlag(Qt::ControlModifier)) {
        m_view->removePoint(m_index);
        return;
    }
    const PointList::Points points = PointList::ofItem(*m_view->item());
    m_press = press.place;
    m_start = points.value(m_index);
    m_recorder.begin({m_view->item()}, {PropertyKey::PointList});
    QVector<QRectF> others;
    for (int index = 0; index < points.size(); ++index) {
        if (index != m_index)
            others.append({m_view->mapToScene(points.at(index)), QSizeF(0, 0)});
    }
    m_snapping.begin({m_view->item()}, others);
}

QString CPointGesture::update(const SGesturePointer &pointer)
{
    PointList::Points points = PointList::ofItem(*m_view->item());
    if (!isUnderWay() || m_index >= points.size())
        return {};
    const auto at = [this](const QPointF &offset) {
        const QPointF place = m_start + offset;
        return QPointF(double(roundedToInteger(place.x())), double(roundedToInteger(place.y())));
    };
    const auto outlineAt = [&](const QPointF &offset) {
        return QRectF(m_view->mapToScene(at(offset)), QSizeF(0, 0));
    };
    points[m_index] = at(m_snapping.snapped(outlineAt, pointer.place - m_press, pointer.modifiers));
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
