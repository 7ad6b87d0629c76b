#include "CMoveGesture.h"

#include "CItemModel.h"
#include "PropertyKey.h"

namespace {
void moveAxis(CItemModel &item, const QString &key, const QString &secondKey, double start,
              double second, double delta)
{
    const auto target = static_cast<double>(roundedToInteger(start + delta));
    if (item.propertyValue(key).toDouble() != target)
        item.setProperty(key, static_cast<int>(target));
    if (item.hasProperty(secondKey))
        item.setPropertyIfChanged(secondKey,
                                  static_cast<int>(roundedToInteger(second + target - start)));
}
} // namespace

CMoveGesture::CMoveGesture(const QVector<CItemModel *> &items)
{
    for (CItemModel *item : items)
        m_starts.append({item, QPointF(item->x(), item->y()), QPointF(item->x2(), item->y2())});
}

QVector<CItemModel *> CMoveGesture::items() const
{
    QVector<CItemModel *> items;
    for (const Start &each : m_starts)
        items.append(each.item);
    return items;
}

void CMoveGesture::moveBy(const QPointF &delta) const
{
    for (const Start &each : m_starts) {
        moveAxis(*each.item, PropertyKey::X, PropertyKey::X2, each.position.x(), each.second.x(),
                 delta.x());
        moveAxis(*each.item, PropertyKey::Y, PropertyKey::Y2, each.position.y(), each.second.y(),
                 delta.y());
    }
}
