#include "SnapReferences.h"

#include "CItemArrange.h"
#include "CProjectModel.h"
#include "CScreenModel.h"

#include <QSet>

namespace {
void add(const CItemModel &parent, const QSet<const CItemModel *> &moving,
         const QSet<const CItemModel *> &holders, QVector<QRectF> &frames)
{
    for (int row = 0; row < parent.rowCount(); ++row) {
        const CItemModel *item = parent.childItem(row);
        if (!item || item->isHidden() || moving.contains(item)) // nothing unseen holds the item
            continue;
        if (!holders.contains(item))
            frames.append(CItemArrange::frameOf(*item));
        add(*item, moving, holders, frames);
    }
}
} // namespace

SSnapReferences SnapReferences::of(const CScreenModel &screen, const QVector<CItemModel *> &moving)
{
    QSet<const CItemModel *> away;
    QSet<const CItemModel *> holders; // groups that change with their members
    for (const CItemModel *each : moving) {
        away.insert(each);
        while ((each = each->parentItem()) && each != &screen)
            holders.insert(each);
    }
    SSnapReferences references;
    add(screen, away, holders, references.items);
    references.page = QRectF(QPointF(), QSizeF(screen.project()->resolution()));
    for (const SScreenGuide &each : screen.guides())
        (each.orientation == Qt::Vertical ? references.upright : references.level)
            .append(each.position);
    return references;
}
