#pragma once

#include <QStyledItemDelegate>

/// Draws a row of CFoundList: its name, where it stands, and at the right its keys or why it cannot
/// be chosen.
class CFoundDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
