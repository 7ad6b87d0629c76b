#include "CItemArrange.h"

#include "ArrangeRule.h"
#include "CCommandChangeItemProperty.h"
#include "CGestureRecorder.h"
#include "CItemModel.h"
#include "CItemScale.h"
#include "CProjectModel.h"
#include "ItemGeometry.h"
#include "ItemMove.h"
#include "ItemOutline.h"
#include "ItemTree.h"
#include "PropertyKey.h"

#include <QPolygonF>
#include <QTransform>
#include <QUndoStack>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace {
using ArrangeRule::EEdge;

bool isSized(const CItemModel &item)
{
    const auto keys = {PropertyKey::Width, PropertyKey::Height, PropertyKey::Radius,
                       PropertyKey::PointSize, PropertyKey::X2};
    return item.kind() == CItemModel::Kind::Widget && item.isResizeable() && !item.hasPointList() &&
           std::any_of(keys.begin(), keys.end(),
                       [&item](const QString &key) { return item.hasProperty(key); });
}

/// What of an item moves, and changes its size, with it: itself, or members of a group.
void addFree(const CItemModel &item, QVector<const CItemModel *> &free)
{
    if (item.isLocked())
        return;
    if (item.rowCount() == 0)
        free.append(&item);
    for (int row = 0; row < item.rowCount(); ++row)
        addFree(*item.childItem(row), free);
}

QVector<const CItemModel *> freeOf(const CItemModel &item)
{
    QVector<const CItemModel *> free;
    addFree(item, free);
    return free;
}

bool isFixed(const CItemModel &item)
{
    return freeOf(item).isEmpty();
}

/// Of a group what is not locked, which is all that can come to a place.
QRectF freeFrameOf(const CItemModel &item)
{
    const auto isLocked = [](const CItemModel &each) { return each.isLocked(); };
    if (item.rowCount() == 0 || isFixed(item) || !findItem(item, isLocked))
        return CItemArrange::frameOf(item);
    QPolygonF corners;
    for (const CItemModel *each : freeOf(item)) {
        const QRectF frame = ItemGeometry::frameOf(*each);
        corners << frame.topLeft() << frame.bottomRight();
    }
    return corners.boundingRect();
}

bool isGroup(const CItemModel &item)
{
    return item.kind() == CItemModel::Kind::Group;
}

void addSize(QUndoCommand *step, CItemModel *item, const QString &key, double wanted)
{
    const auto property = item->properties().constFind(key);
    if (property == item->properties().constEnd())
        return;
    if (property->minimum().isValid())
        wanted = std::max(wanted, property->minimum().toDouble());
    if (property->maximum().isValid())
        wanted = std::min(wanted, property->maximum().toDouble());
    const QVariant old = item->propertyValue(key);
    const int value = static_cast<int>(roundedToInteger(wanted));
    if (old.toString() != QString::number(value))
        new CCommandChangeItemProperty(item, key, value, old, step); // which owns it
}

/// Where the second of two points lies when they are this far apart, on the side where it lies.
double secondAt(double first, double second, double distance)
{
    return second < first ? first - distance : first + distance;
}

Qt::Orientation axisOf(CItemArrange::EWhat what)
{
    switch (what) {
    case CItemArrange::AlignLeft:
    case CItemArrange::AlignCentre:
    case CItemArrange::AlignRight:
    case CItemArrange::DistributeLeft:
    case CItemArrange::DistributeCentre:
    case CItemArrange::DistributeRight:
    case CItemArrange::DistributeAcross:
    case CItemArrange::GapAcross:
    case CItemArrange::CentreAcross:
        return Qt::Horizontal;
    default:
        return Qt::Vertical;
    }
}

EEdge edgeOf(CItemArrange::EWhat what)
{
    switch (what) {
    case CItemArrange::AlignLeft:
    case CItemArrange::AlignTop:
    case CItemArrange::DistributeLeft:
    case CItemArrange::DistributeTop:
        return EEdge::First;
    case CItemArrange::AlignRight:
    case CItemArrange::AlignBottom:
    case CItemArrange::DistributeRight:
    case CItemArrange::DistributeBottom:
        return EEdge::Last;
    default:
        return EEdge::Middle;
    }
}

bool isIn(CItemArrange::EWhat what, CItemArrange::EWhat first, CItemArrange::EWhat last)
{
    return what >= first && what <= last;
}
} // namespace

QRectF CItemArrange::frameOf(const CItemModel &item)
{
    const QRectF frame = ItemGeometry::frameOf(item);
    if (!item.hasAngle() || item.angle() == 0)
        return frame; // of many items at once, whose texts would be measured twice
    const SItemOutline outline = itemOutline(item);
    // Lines and arrows are "turned" along their direction, which their frame has in it already.
    if (outline.turn == 0 || item.geometryMode() == GeometryMode::TwoCorners)
        return frame;
    const QPointF middle = frame.center();
    QTransform turn;
    turn.translate(middle.x(), middle.y()).rotate(outline.turn).translate(-middle.x(), -middle.y());
    return turn.mapRect(frame);
}

QString CItemArrange::lack(EWhat what) const
{
    const bool isSize = isIn(what, SameWidth, SameSize);
    const bool isDistribution = isIn(what, DistributeLeft, DistributeDown);
    const bool isForOne =
        isIn(what, AlignLeft, AlignBottom) || isIn(what, CentreAcross, CentreBoth);
    if (m_items.size() < (isForOne ? 1 : isDistribution ? 3 : 2))
        return isForOne         ? tr("Select one or more items first")
               : isDistribution ? tr("Select three or more items first")
                                : tr("Select two or more items first");
    const auto isFree = [isSize](const CItemModel *each) {
        return !isFixed(*each) && (!isSize || isGroup(*each) || isSized(*each));
    };
    if (isSize)
        return std::any_of(m_items.begin() + 1, m_items.end(), isFree)
                   ? QString()
                   : tr("None of the other selected items can change its size");
    return std::any_of(m_items.begin(), m_items.end(), isFree)
               ? QString()
               : tr("All selected items are locked");
}

/// By how much each item moves along an axis.
QVector<int> CItemArrange::steps(EWhat what, Qt::Orientation axis, int gap) const
{
    const auto spanOf = [axis](const QRectF &frame, bool isFixed) {
        return axis == Qt::Horizontal ? ArrangeRule::SSpan{frame.left(), frame.right(), isFixed}
                                      : ArrangeRule::SSpan{frame.top(), frame.bottom(), isFixed};
    };
    const CItemModel *key =
        m_reference == EReference::KeyItem ? m_items.constFirst() : nullptr; // which stays
    ArrangeRule::Spans spans;
    for (const CItemModel *each : m_items)
        spans.append(spanOf(freeFrameOf(*each), isFixed(*each) || each == key));
    if (what == DistributeAcross || what == DistributeDown)
        return ArrangeRule::distributeGaps(spans);
    if (what == GapAcross || what == GapDown)
        return ArrangeRule::distributeGaps(spans, gap);
    const EEdge edge = edgeOf(what);
    if (isIn(what, DistributeLeft, DistributeBottom))
        return ArrangeRule::distribute(spans, edge);
    const bool isCentring = isIn(what, CentreAcross, CentreBoth);
    const QRectF page(QPointF(), QSizeF(m_items.constFirst()->project()->resolution()));
    const ArrangeRule::SSpan pageSpan = spanOf(page, true);
    if (!isCentring) {
        const bool isToPage = m_reference == EReference::Page || spans.size() == 1;
        return ArrangeRule::align(spans,
                                  isToPage ? pageSpan
                                  : key    ? spans.constFirst()
                                           : ArrangeRule::reference(spans),
                                  edge);
    }
    // What is centred keeps its arrangement; what is locked stays and does not count.
    std::optional<ArrangeRule::SSpan> together;
    for (int index = 0; index < spans.size(); ++index) {
        if (isFixed(*m_items.at(index)))
            continue;
        if (!together)
            together = spans.at(index);
        together->first = std::min(together->first, spans.at(index).first);
        together->last = std::max(together->last, spans.at(index).last);
    }
    const ArrangeRule::SSpan all = together.value_or(spans.constFirst());
    const int step = ArrangeRule::align({all}, pageSpan, EEdge::Middle).constFirst();
    return QVector<int>(spans.size(), step);
}

/// Groups as by a drag of their frame, all at once; they are as they will be afterwards.
void CItemArrange::resizeGroups(CGestureRecorder &recorder, bool isWidth, bool isHeight) const
{
    const QSizeF size = ItemGeometry::frameOf(*m_items.constFirst()).size();
    std::vector<CItemScale> scales;
    QVector<CItemModel *> items;
    for (CItemModel *each : m_items.mid(1)) {
        if (!isGroup(*each) || isFixed(*each))
            continue;
        scales.push_back(CItemScale({each}));
        items += scales.back().items();
    }
    recorder.begin(items, CItemScale::keys());
    for (const CItemScale &each : scales) {
        QRectF frame = each.frame();
        const QSizeF free = freeFrameOf(*each.items().constFirst()).size();
        if (isWidth && free.width() > 0)
            frame.setWidth(frame.width() * size.width() / free.width());
        if (isHeight && free.height() > 0)
            frame.setHeight(frame.height() * size.height() / free.height());
        each.apply(frame);
    }
}

void CItemArrange::resize(QUndoCommand *step, bool isWidth, bool isHeight) const
{
    const QSizeF size = ItemGeometry::frameOf(*m_items.constFirst()).size();
    for (CItemModel *each : m_items.mid(1)) {
        if (each->isLocked() || !isSized(*each))
            continue;
        const double across = isWidth ? size.width() : size.height(); // of what is round
        addSize(step, each, PropertyKey::Radius, across / 2);
        addSize(step, each, PropertyKey::PointSize, across / 2 * ItemGeometry::PointSizeOfPixel);
        if (isWidth) {
            addSize(step, each, PropertyKey::Width, size.width());
            addSize(step, each, PropertyKey::X2, secondAt(each->x(), each->x2(), size.width()));
        }
        if (isHeight) {
            if (!each->isHeightFromFont())
                addSize(step, each, PropertyKey::Height, size.height());
            addSize(step, each, PropertyKey::Y2, secondAt(each->y(), each->y2(), size.height()));
        }
    }
}

void CItemArrange::run(EWhat what, const QString &macroText, int gap) const
{
    if (!lack(what).isEmpty())
        return;
    const bool isSize = isIn(what, SameWidth, SameSize);
    const bool isAcross = axisOf(what) == Qt::Horizontal || what == CentreBoth;
    const bool isDown = axisOf(what) == Qt::Vertical;
    const QVector<int> none(m_items.size(), 0);
    const QVector<int> across = !isSize && isAcross ? steps(what, Qt::Horizontal, gap) : none;
    const QVector<int> down = !isSize && isDown ? steps(what, Qt::Vertical, gap) : none;
    auto step = std::make_unique<QUndoCommand>(macroText);
    for (int index = 0; index < m_items.size(); ++index) {
        CItemModel *item = m_items.at(index);
        if (!isFixed(*item) && (across.at(index) != 0 || down.at(index) != 0))
            ItemMove::commands(item,
                               QPointF(item->x() + across.at(index), item->y() + down.at(index)),
                               step.get());
    }
    QUndoStack &stack = *m_items.constFirst()->project()->undoStack();
    CGestureRecorder groups;
    if (isSize) {
        resize(step.get(), what != SameHeight, what != SameWidth);
        resizeGroups(groups, what != SameHeight, what != SameWidth);
    }
    const bool areGroups = !groups.changedItems().isEmpty();
    if (areGroups)
        stack.beginMacro(macroText);
    groups.record(QString());
    if (step->childCount() > 0)
        stack.push(step.release());
    if (areGroups)
        stack.endMacro();
}
