#include "CScaleGesture.h"

#include "CItemScale.h"
#include "CResizeRule.h"
#include "CSnapping.h"

#include <algorithm>

CScaleGesture::CScaleGesture(const QVector<CItemModel *> &items, int handle, CSnapping &snapping)
    : m_scale(std::make_unique<CItemScale>(items)), m_handle(handle), m_snapping(snapping)
{
}

CScaleGesture::~CScaleGesture() = default;

void CScaleGesture::start(const SGesturePointer &press)
{
    m_press = press.place;
    const QRectF &frame = m_scale->frame();
    SizeLimits limits; // it neither vanishes nor turns over
    limits.minimum = {std::min(1.0, frame.width()), std::min(1.0, frame.height())};
    m_rule = std::make_unique<CResizeRule>(
        ResizeKind::Box, m_handle, CResizeRule::Geometry{frame.topLeft(), frame.size()}, limits);
    m_recorder.begin(m_scale->items(), CItemScale::keys());
    m_snapping.begin(m_scale->items());
}

QString CScaleGesture::update(const SGesturePointer &pointer)
{
    if (!isUnderWay())
        return {};
    CResizeRule::Modifiers modifiers;
    modifiers.keepAspect = pointer.modifiers.testFlag(Qt::ShiftModifier);
    modifiers.fromCentre = pointer.modifiers.testFlag(Qt::AltModifier);
    const auto frameAt = [&](const QPointF &offset) {
        const auto frame = m_rule->geometryFor(offset, modifiers);
        return QRectF(frame.position, frame.size);
    };
    const QPointF offset = m_snapping.snapped(frameAt, pointer.place - m_press, pointer.modifiers);
    const auto frame = m_rule->geometryFor(offset, modifiers);
    m_scale->apply({frame.position, frame.size});
    return QObject::tr("%1, %2   %3 × %4")
        .arg(frame.position.x())
        .arg(frame.position.y())
        .arg(frame.size.width())
        .arg(frame.size.height());
}

void CScaleGesture::commit()
{
    m_recorder.record(QObject::tr("Scale Selected Items"));
}

void CScaleGesture::cancel()
{
    m_recorder.restore();
}
