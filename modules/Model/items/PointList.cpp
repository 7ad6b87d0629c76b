#include "PointList.h"

#include "CItemModel.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace {
const QString ClosedKey = QStringLiteral("closed");

double squaredDistance(const QPointF &point, const QPointF &from, const QPointF &to)
{
    const QPointF along = to - from;
    const double length = QPointF::dotProduct(along, along);
    const double share =
        length > 0 ? std::clamp(QPointF::dotProduct(point - from, along) / length, 0.0, 1.0) : 0.0;
    const QPointF away = point - (from + along * share);
    return QPointF::dotProduct(away, away);
}
} // namespace

PointList::Points PointList::parse(const QString &text)
{
    Points points;
    for (const QString &pair : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QStringList numbers = pair.split(QLatin1Char(','));
        bool hasX = false;
        bool hasY = false;
        if (numbers.size() != 2)
            continue;
        const QPointF point(numbers.at(0).toDouble(&hasX), numbers.at(1).toDouble(&hasY));
        if (hasX && hasY)
            points.append(point);
    }
    return points;
}

QString PointList::format(const Points &points)
{
    QStringList pairs;
    for (const QPointF &point : points)
        pairs.append(QStringLiteral("%1,%2")
                         .arg(roundedToInteger(point.x()))
                         .arg(roundedToInteger(point.y())));
    return pairs.join(QLatin1Char(';'));
}

int PointList::insertionIndex(const Points &points, const QPointF &point, bool closed)
{
    int best = points.size();
    double distance = std::numeric_limits<double>::max();
    const int segments = closed ? points.size() : points.size() - 1;
    for (int index = 0; index < segments; ++index) {
        const double its =
            squaredDistance(point, points.at(index), points.at((index + 1) % points.size()));
        if (its < distance) {
            distance = its;
            best = index + 1;
        }
    }
    return best;
}

PointList::Points PointList::ofItem(const CItemModel &item)
{
    return parse(item.propertyText(PropertyKey::PointList));
}

bool PointList::isClosed(const CItemModel &item)
{
    return item.hasProperty(ClosedKey) ? item.propertyValue(ClosedKey).toBool()
                                       : minimumCount(item) == 3;
}

int PointList::minimumCount(const CItemModel &item)
{
    return item.itemTypeName().contains(QLatin1String("Polygon")) ? 3 : 2;
}
