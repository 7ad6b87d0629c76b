#include "PastePlace.h"

#include "CItemDocument.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "ItemGeometry.h"
#include "ItemTree.h"
#include "PropertyKey.h"

#include <QRectF>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace {
using Content = QPair<QByteArray, QPair<double, double>>; ///< what it is, and where

/// All that is seen of an item, its place left out: equal bytes look the same.
void addLook(const CItemModel &item, const QPointF &origin, QByteArray &look)
{
    static const QSet<QString> apart = {
        PropertyKey::Id,           PropertyKey::Name,  PropertyKey::Locked, PropertyKey::FileName,
        PropertyKey::BitmapFolder, PropertyKey::X,     PropertyKey::Y,      PropertyKey::X2,
        PropertyKey::Y2,           PropertyKey::Hidden};
    const QPointF from = QPointF(item.x(), item.y()) - origin;
    const QPointF to =
        item.hasProperty(PropertyKey::X2) ? QPointF(item.x2(), item.y2()) - origin : QPointF();
    look.append(item.itemTypeName().toUtf8());
    for (const double each : {from.x(), from.y(), to.x(), to.y()})
        look.append(' ').append(QByteArray::number(each));
    look.append('\n');
    for (const CWidgetProperty *each : CItemDocument::of(item).saved(item)) {
        if (!apart.contains(each->key()))
            look.append(each->keyUtf8()).append('=').append(each->textUtf8()).append('\n');
    }
    for (int row = 0; row < item.rowCount(); ++row) {
        if (const CItemModel *member = item.childItem(row)) {
            look.append('{');
            addLook(*member, origin, look);
            look.append('}');
        }
    }
}

Content contentOf(const CItemModel &item)
{
    QByteArray look;
    look.reserve(256);
    addLook(item, {item.x(), item.y()}, look);
    return {look, {item.x(), item.y()}};
}

/// How far a span must move to lie in 0..length; one that is longer begins where the page does.
double inward(double first, double last, double length)
{
    const double back = std::min(0.0, length - last);
    return std::max(back, -first);
}

void shift(CItemModel &item, const QString &key, int by)
{
    if (by == 0 || !item.hasProperty(key))
        return;
    const double moved = item.propertyValue(key).toDouble() + by;
    const bool isWhole = moved == std::floor(moved);
    item.setProperty(key, isWhole ? QVariant(static_cast<int>(moved)) : QVariant(moved),
                     CItemModel::Notify::No);
}
} // namespace

QPoint PastePlace::ontoPage(const QVector<CItemModel *> &items, const QSize &size,
                            const QSize &from)
{
    const QRectF page(QRect(QPoint(), size));
    const QRectF box = ItemGeometry::frameOf(items);
    if (!from.isEmpty() && from.width() <= page.width() && from.height() <= page.height())
        return {};
    return QPointF(std::floor(inward(box.left(), box.right(), page.width())),
                   std::floor(inward(box.top(), box.bottom(), page.height())))
        .toPoint();
}

QPoint PastePlace::offset(const QVector<CItemModel *> &items, const CItemModel &into,
                          const QSize &from)
{
    const QSize size = into.project()->resolution();
    const QRectF page(QRect(QPoint(), size));
    const QRectF box = ItemGeometry::frameOf(items);
    QVector<Content> pasted;
    for (const CItemModel *each : items)
        pasted.append(contentOf(*each));
    const QPoint base = ontoPage(items, size, from);

    QSet<Content> present;
    for (int row = 0; row < into.rowCount(); ++row)
        present.insert(contentOf(*into.childItem(row)));
    const auto isThere = [&](const QPoint &by) {
        return std::all_of(pasted.begin(), pasted.end(), [&](const Content &each) {
            return present.contains(
                {each.first, {each.second.first + by.x(), each.second.second + by.y()}});
        });
    };
    if (page.contains(box.translated(base))) { // and it stays there
        for (const int away : {Step, -Step}) {
            for (QPoint by = base; page.contains(box.translated(by)); by += QPoint(away, away)) {
                if (!isThere(by))
                    return by;
            }
        }
    }
    QPoint by = base; // there is no room but over the edge
    while (isThere(by))
        by += QPoint(Step, Step);
    return by;
}

void PastePlace::move(CItemModel &item, const QPoint &by)
{
    forEachItem(item, [&by](CItemModel &each) {
        shift(each, PropertyKey::X, by.x());
        shift(each, PropertyKey::X2, by.x());
        shift(each, PropertyKey::Y, by.y());
        shift(each, PropertyKey::Y2, by.y());
    });
}
