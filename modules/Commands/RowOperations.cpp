#include "RowOperations.h"

#include "CItemModel.h"

#include <QSignalBlocker>
#include <QStandardItemModel>

#include <numeric>

namespace {
using RowOperations::Items;
using RowOperations::Run;

Items takeChildren(QStandardItem *parent, const Run &run)
{
    const QSignalBlocker quiet(parent->model()); // told already: they leave together
    Items taken;
    taken.reserve(run.count);
    for (int row = run.first; row < run.first + run.count; ++row)
        taken.append(static_cast<CItemModel *>(parent->takeChild(row)));
    return taken;
}

/// QStandardItem takes single rows only; a run it removes, with the items. So these are taken out
/// once everyone has heard that the rows go, and before they do.
Items takeRun(QStandardItem *parent, const Run &run)
{
    Items taken;
    if (QStandardItemModel *model = parent->model()) {
        const auto lastToHear = QObject::connect(model, &QAbstractItemModel::rowsAboutToBeRemoved,
                                                 [&] { taken = takeChildren(parent, run); });
        parent->removeRows(run.first, run.count);
        QObject::disconnect(lastToHear);
    } else {
        taken = takeChildren(parent, run);
        parent->removeRows(run.first, run.count);
    }
    return taken;
}
} // namespace

namespace RowOperations {

QVector<Run> runsOf(const Rows &rows)
{
    QVector<Run> runs;
    for (const int row : rows) {
        if (!runs.isEmpty() && runs.constLast().first + runs.constLast().count == row)
            ++runs.last().count;
        else
            runs.append({row, 1});
    }
    return runs;
}

Rows span(int first, int count)
{
    Rows rows(count);
    std::iota(rows.begin(), rows.end(), first);
    return rows;
}

Rows rowsOf(const Items &items)
{
    Rows rows;
    rows.reserve(items.size());
    const QStandardItem *parent = items.isEmpty() ? nullptr : parentOf(*items.constFirst());
    for (const CItemModel *each : items) { // the next is near: searching takes its time
        int row = rows.isEmpty() ? each->row() : rows.constLast() + 1;
        while (parent->child(row) != each && row < parent->rowCount())
            ++row;
        Q_ASSERT(row < parent->rowCount());
        rows.append(row);
    }
    return rows;
}

void setGrouped(const Items &items, const CItemModel &parent)
{
    for (CItemModel *each : items)
        each->setGrouped(parent.kind() == CItemModel::Kind::Group);
}

QStandardItem *parentOf(const CItemModel &item)
{
    const bool isTopmost = !item.parent() && item.model();
    return isTopmost ? item.model()->invisibleRootItem() : item.parent();
}

Items take(QStandardItem *parent, const Rows &rows)
{
    const QVector<Run> runs = runsOf(rows);
    Items items(rows.size());
    int end = items.size();
    for (auto run = runs.crbegin(); run != runs.crend(); ++run) { // the rows before it stay
        const Items taken = takeRun(parent, *run);
        end -= run->count;
        std::copy(taken.begin(), taken.end(), items.begin() + end);
    }
    return items;
}

void insert(QStandardItem *parent, const Rows &rows, const Items &items)
{
    int next = 0;
    for (const Run &run : runsOf(rows)) {
        QList<QStandardItem *> inserted;
        inserted.reserve(run.count);
        while (inserted.size() < run.count)
            inserted.append(items.at(next++));
        parent->insertRows(run.first, inserted);
    }
}

CItemModel *take(QStandardItem *parent, int row)
{
    return take(parent, Rows{row}).constFirst();
}

void insert(QStandardItem *parent, int row, CItemModel *item)
{
    insert(parent, Rows{row}, {item});
}

} // namespace RowOperations
