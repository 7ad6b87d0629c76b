#pragma once

#include "SBudget.h"

#include <QStyledItemDelegate>

/// Draws a cell that shows what is used of a memory: figures, and a bar below them.
class CMemoryBar final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The share of the memory, 1 for all of it, as a double; above 1 when it does not fit.
    static constexpr int ShareRole = Qt::UserRole + 10;

    static double shareOf(const SMemoryUse &use);
    static QString textOf(const SMemoryUse &use);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
