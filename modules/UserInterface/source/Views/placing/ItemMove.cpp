#include "ItemMove.h"

#include "CCommandChangeItemProperty.h"
#include "CItemModel.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

namespace {
ItemMove::SAxis axis(const CItemModel &item, const QString &key, const QString &secondKey,
                     double start, double second, double target)
{
    const auto whole = static_cast<double>(roundedToInteger(target));
    ItemMove::SAxis moved{key, static_cast<int>(whole), secondKey, {}};
    if (item.hasProperty(secondKey))
        moved.second = static_cast<int>(roundedToInteger(second + whole - start));
    return moved;
}
} // namespace

std::array<ItemMove::SAxis, 2> ItemMove::axes(const CItemModel &item, const QPointF &start,
                                              const QPointF &second, const QPointF &target)
{
    return {
        axis(item, PropertyKey::X, PropertyKey::X2, start.x(), second.x(), target.x()),
        axis(item, PropertyKey::Y, PropertyKey::Y2, start.y(), second.y(), target.y()),
    };
}

std::array<ItemMove::SAxis, 2> ItemMove::axes(const CItemModel &item, const QPointF &target)
{
    return axes(item, {item.x(), item.y()}, {item.x2(), item.y2()}, target);
}

QVector<QUndoCommand *> ItemMove::commands(CItemModel *item, const QPointF &target,
                                           QUndoCommand *parent)
{
    QVector<QUndoCommand *> made;
    for (const SAxis &axis : axes(*item, target)) {
        const QVariant old = item->propertyValue(axis.key);
        if (old.toString() == QString::number(axis.value))
            continue;
        made.append(new CCommandChangeItemProperty(item, axis.key, axis.value, old, parent));
        if (axis.second)
            made.append(new CCommandChangeItemProperty(
                item, axis.secondKey, *axis.second, item->propertyValue(axis.secondKey), parent));
    }
    return made;
}

bool ItemMove::isBetweenTwoPoints(const CItemModel &item)
{
    return item.hasProperty(PropertyKey::X2) || item.hasProperty(PropertyKey::Y2);
}
