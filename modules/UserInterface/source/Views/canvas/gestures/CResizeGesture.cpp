#include "CResizeGesture.h"

#include "CItemModel.h"
#include "CItemView.h"
#include "CResizeRule.h"
#include "CSnapping.h"

CResizeGesture::CResizeGesture(CItemView *view, int handle, CSnapping &snapping)
    : m_view(view), m_handle(handle), m_snapping(snapping)
{
}

CResizeGesture::~CResizeGesture() = default;

void CResizeGesture::start(const SGesturePointer &press)
{
    m_press = press.place;
    m_rule = ItemResize::ruleFor(*m_view->item(), m_handle, m_view->shownAngle());
    m_start = ItemResize::startOf(*m_view->item(), m_view->shownAngle());
    m_recorder.begin({m_view->item()}, CStartValues::geometryKeys());
    m_snapping.begin({m_view->item()});
}

QString CResizeGesture::update(const SGesturePointer &pointer)
{
    if (!isUnderWay() || !m_view->isResizable())
        return {};
    CResizeRule::Modifiers modifiers;
    modifiers.keepAspect = pointer.modifiers.testFlag(Qt::ShiftModifier);
    modifiers.fromCentre = pointer.modifiers.testFlag(Qt::AltModifier);
    CItemModel &item = *m_view->item();
    const auto outlineAt = [&](const QPointF &offset) {
        return ItemResize::outlineOf(m_start, m_rule->geometryFor(offset, modifiers));
    };
    const QPointF offset =
        m_snapping.snapped(outlineAt, pointer.place - m_press, pointer.modifiers);
    ItemResize::apply(item, m_rule->geometryFor(offset, modifiers));
    m_view->updateBounds();
    const QSizeF size = m_view->frameRect().size();
    return QObject::tr("%1, %2   %3 × %4")
        .arg(item.x())
        .arg(item.y())
        .arg(size.width())
        .arg(size.height());
}

void CResizeGesture::commit()
{
    m_recorder.record(QObject::tr("Resize Item"));
}

void CResizeGesture::cancel()
{
    m_recorder.restore();
}
