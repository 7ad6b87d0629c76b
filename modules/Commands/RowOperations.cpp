#include "RowOperations.h"

#include "CItemModel.h"

#include <QStandardItem>

namespace RowOperations {

CItemModel *take(QStandardItem *parent, int row)
{
    const QList<QStandardItem *> taken = parent->takeRow(row);
    Q_ASSERT(taken.size() == 1);
    return static_cast<CItemModel *>(taken.first());
}

void insert(QStandardItem *parent, int row, CItemModel *item)
{
    parent->insertRow(row, item);
}

} // namespace RowOperations
