#include "GuideRule.h"

#include <algorithm>
#include <cmath>

double GuideRule::across(Qt::Orientation guide, const QPointF &place)
{
    return guide == Qt::Vertical ? place.x() : place.y();
}

double GuideRule::pixelOf(const SScreenGuide &guide, const QTransform &toView)
{
    const double position = guide.position;
    return std::floor(across(guide.orientation, toView.map(QPointF(position, position))));
}

int GuideRule::positionAt(Qt::Orientation guide, const QPointF &place, const QTransform &toView)
{
    constexpr double farthest = SScreenGuide::Farthest;
    const double position = across(guide, toView.inverted().map(place));
    return static_cast<int>(std::lround(std::clamp(position, -farthest, farthest)));
}

int GuideRule::snapped(Qt::Orientation guide, int position, const SSnapReferences &references,
                       SnapKinds kinds, double tolerance)
{
    QVector<QRectF> rects;
    if (kinds.testFlag(ESnapKind::Items))
        rects = references.items;
    if (kinds.testFlag(ESnapKind::Page))
        rects.append(references.page);
    int found = position;
    for (const QRectF &each : qAsConst(rects)) {
        for (const QPointF &point : {each.topLeft(), each.center(), each.bottomRight()}) {
            const double distance = std::abs(across(guide, point) - position);
            if (distance > tolerance)
                continue;
            tolerance = distance;
            found = static_cast<int>(std::lround(across(guide, point)));
        }
    }
    return found;
}

GuideRule::SHit GuideRule::at(const ScreenGuideList &guides, const QPointF &place,
                              const QTransform &toView, double reach, bool isWithLocked)
{
    SHit hit;
    for (int index = 0; index < guides.size(); ++index) {
        const SScreenGuide &guide = guides.at(index);
        const double distance = std::abs(across(guide.orientation, place) - pixelOf(guide, toView));
        const bool isNearest = hit.index < 0 || distance <= hit.distance;
        if (distance <= reach && isNearest && (isWithLocked || !guide.isLocked))
            hit = {index, distance};
    }
    return hit;
}
