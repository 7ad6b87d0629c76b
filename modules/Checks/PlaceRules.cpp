#include "CProjectModel.h"
#include "ItemGeometry.h"
#include "ItemOutline.h"
#include "ItemTree.h"
#include "ProjectChecks.h"
#include "PropertyKey.h"
#include "RuleSupport.h"

#include <QPolygonF>
#include <QTransform>

#include <algorithm>

// Where items lie: on their screen, with a size, apart from each other where they are touched.

namespace {

constexpr double LeastTouch = 7;  // millimetres
constexpr double UsualDots = 150; // per inch
constexpr double MillimetresPerInch = 25.4;
constexpr double LeastPixel = 0.5; // what reaches out by less is not seen

QRectF boundsOf(const CItemModel &item)
{
    const SItemOutline outline = itemOutline(item);
    const QPointF middle = outline.box.center();
    QTransform turn;
    turn.translate(middle.x(), middle.y()).rotate(outline.turn).translate(-middle.x(), -middle.y());
    return turn.map(QPolygonF(outline.box)).boundingRect();
}

void checkScreen(CRuleContext &context, const CItemModel &item, const QRectF &bounds)
{
    const QRectF screen(QPointF(0, 0), QSizeF(context.project.resolution()));
    const QRectF seen = bounds.intersected(screen);
    if (seen.width() < LeastPixel || seen.height() < LeastPixel)
        context.add(ERule::OutsideScreen, ESeverity::Warning, &item,
                    CRuleContext::tr("%1 lies outside the screen.").arg(context.called(item)));
    else if (!screen.adjusted(-LeastPixel, -LeastPixel, LeastPixel, LeastPixel).contains(bounds))
        context.add(
            ERule::OutsideScreen, ESeverity::Note, &item,
            CRuleContext::tr("%1 lies partly outside the screen.").arg(context.called(item)));
}

/// Of those sizes that the item's kind has.
bool hasNoSize(const CItemModel &item)
{
    const auto isNone = [&item](const QString &key) {
        return item.hasProperty(key) && item.propertyValue(key).toDouble() <= 0;
    };
    switch (item.geometryMode()) {
    case GeometryMode::Box:
        return isNone(PropertyKey::Width) ||
               (isNone(PropertyKey::Height) && !item.isHeightFromFont());
    case GeometryMode::Radius:
        return isNone(PropertyKey::Radius);
    case GeometryMode::PointSize:
        return isNone(PropertyKey::PointSize);
    case GeometryMode::TwoCorners:
        return item.x() == item.x2() && item.y() == item.y2();
    }
    return false;
}

void checkTouched(CRuleContext &context, const QVector<QPair<const CItemModel *, QRectF>> &touched)
{
    const double dots = context.setting(ProjectChecks::DotsPerInch, UsualDots);
    for (int i = 0; i < touched.size(); ++i) {
        const auto &[item, bounds] = touched[i];
        const double side = std::min(bounds.width(), bounds.height()) / dots * MillimetresPerInch;
        if (side < LeastTouch)
            context.add(ERule::TouchSize, ESeverity::Warning, item,
                        CRuleContext::tr("%1 is %2 mm for a finger, at %3 dots per inch; 7 mm is "
                                         "the least.")
                            .arg(context.called(*item))
                            .arg(side, 0, 'f', 1)
                            .arg(dots));
        for (int other = 0; other < i; ++other) {
            const QRectF common = bounds.intersected(touched[other].second);
            if (common.width() >= 1 && common.height() >= 1)
                context.add(ERule::TouchOverlap, ESeverity::Warning, item,
                            CRuleContext::tr("%1 and %2 can be touched in the same place.")
                                .arg(context.called(*item), context.called(*touched[other].first)));
        }
    }
}

} // namespace

void checkPlaces(CRuleContext &context)
{
    QVector<QPair<const CItemModel *, QRectF>> touched;
    forEachItem(*context.screen, [&](const CItemModel &item) {
        if (item.kind() != CItemModel::Kind::Widget)
            return;
        if (hasNoSize(item)) {
            context.add(ERule::NoSize, ESeverity::Warning, &item,
                        CRuleContext::tr("%1 has no size.").arg(context.called(item)));
            return;
        }
        const QRectF bounds = boundsOf(item);
        if (bounds.isEmpty())
            return; // nothing of it is seen, a text that is empty for instance
        checkScreen(context, item, bounds);
        if (context.isTouched(item))
            touched.append({&item, bounds});
    });
    checkTouched(context, touched);
}
