#include "CRotateGesture.h"

#include "CItemModel.h"
#include "CItemView.h"
#include "CRotateRule.h"
#include "CRotationOutline.h"
#include "PropertyKey.h"

#include <cmath>

CRotateGesture::CRotateGesture(CItemView *view) : m_view(view)
{
}

CRotateGesture::~CRotateGesture() = default;

void CRotateGesture::start(const SGesturePointer &press)
{
    CRotationOutline *outline = m_view->rotationOutline();
    m_rule = std::make_unique<CRotateRule>(m_view->mapToScene(outline->centre()), press.place,
                                           m_view->shownAngle());
    outline->setAngleOffset(m_rule->angleOffset());
    m_recorder.begin({m_view->item()}, {PropertyKey::Angle});
}

QString CRotateGesture::update(const SGesturePointer &pointer)
{
    if (!isUnderWay())
        return {};
    double angle = m_rule->angleFor(pointer.place);
    if (pointer.modifiers.testFlag(Qt::ShiftModifier))
        angle = CRotateRule::stepped(angle);
    angle = std::fmod(std::round(angle * 10) / 10, 360.0); // tenths: what is told
    m_view->item()->setProperty(PropertyKey::Angle, angle);
    return QObject::tr("%1°").arg(angle, 0, 'f', 1);
}

void CRotateGesture::commit()
{
    m_recorder.record(QObject::tr("Rotate Item"));
}

void CRotateGesture::cancel()
{
    m_recorder.restore();
}
