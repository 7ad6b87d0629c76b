#include "CPictureLook.h"
#include "CProjectModel.h"
#include "ItemGeometry.h"
#include "ItemOutline.h"
#include "ItemTree.h"
#include "ProjectChecks.h"
#include "PropertyKey.h"
#include "RuleSupport.h"

#include <QLocale>
#include <QPolygonF>
#include <QTransform>

#include <algorithm>
#include <cmath>

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

/// `text`: what is seen of the item's texts; where it is cut, that is told instead.
void checkScreen(CRuleContext &context, const CItemModel &item, const QRectF &bounds,
                 const QRect &text)
{
    const QRectF screen(QPointF(0, 0), QSizeF(context.project.resolution()));
    // Half of a line along the edge lies outside, as it is meant.
    const bool isLine = item.geometryMode() == GeometryMode::TwoCorners;
    const QRectF meant = isLine ? ItemGeometry::frameOf(item) : bounds;
    const QRectF whole = screen.adjusted(-LeastPixel, -LeastPixel, LeastPixel, LeastPixel);
    const QRectF seen = bounds.intersected(screen);
    if (seen.width() < LeastPixel || seen.height() < LeastPixel)
        context.add(ERule::OutsideScreen, ESeverity::Warning, &item,
                    CRuleContext::tr("%1 lies outside the screen.").arg(context.called(item)));
    else if (!context.isCutByEdge(text) &&
             !(whole.contains(meant.topLeft()) && whole.contains(meant.bottomRight())))
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

struct STouched
{
    const CItemModel *item;
    QRectF bounds;
    bool isAtWork; ///< nothing lies over it that is asked first
};

/// How far a point of a rectangle may come to another, 0 when it lies in it.
double distanceTo(const QRectF &box, const QPointF &point)
{
    return std::hypot(point.x() - std::clamp(point.x(), box.left(), box.right()),
                      point.y() - std::clamp(point.y(), box.top(), box.bottom()));
}

/// By a pixel and more. Dials are touched where they are round.
bool overlap(const STouched &one, const STouched &other)
{
    const QRectF common = one.bounds.intersected(other.bounds);
    if (common.width() < 1 || common.height() < 1)
        return false;
    const auto misses = [](const STouched &round, const STouched &box) {
        return round.item->geometryMode() == GeometryMode::Radius &&
               distanceTo(box.bounds, round.bounds.center()) > round.bounds.width() / 2 - 1;
    };
    return !misses(one, other) && !misses(other, one);
}

void checkTouched(CRuleContext &context, const QVector<STouched> &touched)
{
    const double dots = context.setting(ProjectChecks::DotsPerInch, UsualDots);
    for (int i = 0; i < touched.size(); ++i) {
        const auto &[item, bounds, isAtWork] = touched[i];
        const double side = std::min(bounds.width(), bounds.height()) / dots * MillimetresPerInch;
        if (side < LeastTouch)
            context.add(ERule::TouchSize, ESeverity::Warning, item,
                        CRuleContext::tr("%1 is %2 mm for a finger, at %3 dots per inch; 7 mm is "
                                         "the least.")
                            .arg(context.called(*item))
                            .arg(QLocale().toString(side, 'f', 1))
                            .arg(dots));
        for (int other = 0; other < i; ++other)
            if (isAtWork && touched[other].isAtWork && overlap(touched[i], touched[other]))
                context.add(ERule::TouchOverlap, ESeverity::Warning, item,
                            CRuleContext::tr("%1 and %2 can be touched in the same place.")
                                .arg(context.called(*item), context.called(*touched[other].item)));
    }
}

} // namespace

void checkPlaces(CRuleContext &context, const SPictureState &picture)
{
    QVector<STouched> touched;
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
        checkScreen(context, item, bounds, picture.ink.value(item.id()));
        if (context.isTouched(item))
            touched.append(
                {&item, bounds,
                 !picture.hidden.contains(item.id()) && !picture.dimmed.contains(item.id())});
    });
    checkTouched(context, touched);
}
