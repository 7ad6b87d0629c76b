#include "CResizeGesture.h"

#include "CItemModel.h"
#include "CItemView.h"
#include "CResizeRule.h"
#include "ItemResize.h"

CResizeGesture::CResizeGesture(CItemView *view, int handle) : m_view(view), m_handle(handle)
{
}

CResizeGesture::~CResizeGesture() = default;

void CResizeGesture::start(const SGesturePointer &press)
{
    m_press = press.place;
    m_rule = ItemResize::ruleFor(*m_view->item(), m_handle, m_view->shownAngle());
    m_recorder.begin({m_view->item()}, CStartValues::geometryKeys());
}

QString CResizeGesture::update(const SGesturePointer &pointer)
{
    if (!isUnderWay() || !m_view->isResizable())
        return {};
    CResizeRule::Modifiers modifiers;
    modifiers.keepAspect = pointer.modifiers.testFlag(Qt::ShiftModifier);
    modifiers.fromCentre = pointer.modifiers.testFlag(Qt::AltModifier);
    CItemModel &item = *m_view->item();
    ItemResize::apply(item, m_rule->geometryFor(pointer.place - m_press, modifiers));
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
