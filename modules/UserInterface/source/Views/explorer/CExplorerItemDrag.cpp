#include "CExplorerItemDrag.h"

#include "CItemModel.h"
#include "ItemReorder.h"

#include <QPainter>
#include <QStandardItemModel>
#include <QTreeView>

#include <utility>

namespace {
constexpr int LineHeight = 3;  // pixels
constexpr double EdgeOf = 0.3; ///< share of a group's row, above and below, that is beside it
} // namespace

void CExplorerItemDrag::begin(const QVector<CItemModel *> &items)
{
    leave();
    m_items = items;
}

CItemModel *CExplorerItemDrag::itemAt(const QModelIndex &index) const
{
    const auto *model = qobject_cast<const QStandardItemModel *>(m_tree->model());
    return model ? CItemModel::fromItem(model->itemFromIndex(index)) : nullptr;
}

/// Of all that is seen of a row and what is below it.
int CExplorerItemDrag::bottomOf(QModelIndex row) const
{
    while (m_tree->isExpanded(row) && m_tree->model()->rowCount(row) > 0)
        row = m_tree->model()->index(m_tree->model()->rowCount(row) - 1, 0, row);
    return m_tree->visualRect(row).bottom() + 1;
}

void CExplorerItemDrag::placeBefore(const QModelIndex &row)
{
    m_target = row.parent();
    m_row = row.row();
    const QRect rect = m_tree->visualRect(row);
    m_mark = QRect(rect.left(), rect.top() - LineHeight / 2, rect.width(), LineHeight);
}

/// Behind the last member of a group the pointer says by its distance from the edge how far out of
/// the groups it means.
void CExplorerItemDrag::placeBehind(const QModelIndex &row, int x)
{
    QModelIndex last = row;
    while (last.parent().parent().isValid() &&
           last.row() == m_tree->model()->rowCount(last.parent()) - 1 &&
           x < m_tree->visualRect(last).left())
        last = last.parent();
    m_target = last.parent();
    m_row = last.row() + 1;
    const QRect rect = m_tree->visualRect(last);
    m_mark = QRect(rect.left(), bottomOf(last) - LineHeight / 2, rect.width(), LineHeight);
}

/// To the front.
void CExplorerItemDrag::placeInto(const QModelIndex &row)
{
    m_target = row;
    m_row = 0;
    m_mark = m_tree->visualRect(row);
}

bool CExplorerItemDrag::follow(const QPoint &position)
{
    leave();
    QModelIndex row = m_tree->indexAt(QPoint(m_tree->viewport()->rect().left() + 1, position.y()));
    if (!row.isValid() && m_tree->model()->rowCount() > 0) { // below all: behind all of its page
        const QModelIndex page = m_tree->model()->index(m_tree->model()->rowCount() - 1, 0);
        row = page;
        if (m_tree->isExpanded(page) && m_tree->model()->rowCount(page) > 0)
            row = m_tree->model()->index(m_tree->model()->rowCount(page) - 1, 0, page);
    }
    const CItemModel *item = itemAt(row);
    if (!item || m_items.isEmpty())
        return false;
    const QRect rect = m_tree->visualRect(row);
    const double share = (position.y() - rect.top()) / double(std::max(1, rect.height()));
    const bool isGroup = item->kind() == CItemModel::Kind::Group;
    const double edge = isGroup ? EdgeOf : 0.5;
    const bool isIntoGroup =
        isGroup && share >= edge && share <= 1 && (share <= 1 - edge || m_tree->isExpanded(row));
    if (item->kind() == CItemModel::Kind::Screen || isIntoGroup)
        placeInto(row);
    else if (share < edge)
        placeBefore(row);
    else
        placeBehind(row, position.x());

    const CItemModel *target = itemAt(m_target);
    const bool isPossible = target && ItemReorder::canMove(m_items, *target);
    if (!isPossible)
        leave();
    m_tree->viewport()->update();
    return isPossible;
}

void CExplorerItemDrag::leave()
{
    m_target = QModelIndex();
    m_mark = QRect();
    m_tree->viewport()->update();
}

QVector<CItemModel *> CExplorerItemDrag::drop()
{
    const QVector<CItemModel *> items = std::exchange(m_items, {}); // rows are about to go
    CItemModel *target = itemAt(m_target);
    leave();
    if (!target || !ItemReorder::canMove(items, *target))
        return {};
    ItemReorder::move(items, *target, m_row);
    return items;
}

void CExplorerItemDrag::paint(QPainter *painter) const
{
    if (m_mark.isNull())
        return;
    const QPalette &palette = m_tree->palette();
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    const QColor accent = palette.color(QPalette::Highlight);
    const QColor colour = isDark ? accent.lighter(140) : accent.darker(140);
    if (m_mark.height() <= LineHeight) {
        painter->fillRect(m_mark, colour);
        return;
    }
    painter->setPen(QPen(colour, 2));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(m_mark.adjusted(1, 1, -1, -1));
}
