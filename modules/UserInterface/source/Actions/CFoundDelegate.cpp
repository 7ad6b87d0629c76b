#include "CFoundDelegate.h"

#include "CFoundList.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int Margin = 8; // pixels
constexpr int Icon = 20;

/// Within the left part of a line, cut with an ellipsis. The width that it took.
int drawText(QPainter *painter, const QRect &line, const QString &text, Qt::Alignment where)
{
    if (line.width() <= 0)
        return 0;
    const QString cut = painter->fontMetrics().elidedText(text, Qt::ElideRight, line.width());
    painter->drawText(line, int(where | Qt::AlignVCenter) | Qt::TextSingleLine, cut);
    return painter->fontMetrics().horizontalAdvance(cut);
}
} // namespace

void CFoundDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.text.clear();
    row.icon = QIcon();
    const QWidget *view = option.widget;
    const QStyle *style = view ? view->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, view);

    const QString lack = index.data(CFoundList::LackRole).toString();
    const QString keys = index.data(CFoundList::KeysRole).toString();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QPalette &palette = option.palette;
    const QColor text = palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    // The quiet colour is made for the ground of fields, not for that of what is selected.
    const QColor quiet = isSelected ? text : palette.color(QPalette::PlaceholderText);
    QRect line = option.rect.adjusted(Margin, 0, -Margin, 0);
    painter->save();
    painter->setFont(option.font);
    const QRect icon(line.left(), line.center().y() - Icon / 2, Icon, Icon);
    if (index.data(CFoundList::MarkRole).toBool()) {
        painter->setPen(text);
        painter->drawText(icon, Qt::AlignCenter, QStringLiteral("\u2713"));
    } else {
        index.data(Qt::DecorationRole)
            .value<QIcon>()
            .paint(painter, icon, Qt::AlignCenter,
                   lack.isEmpty() ? QIcon::Normal : QIcon::Disabled);
    }
    line.setLeft(icon.right() + Margin);
    painter->setPen(quiet);
    QRect right = line;
    right.setLeft(line.left() + line.width() * (lack.isEmpty() ? 70 : 45) / 100);
    const int used = drawText(painter, right, lack.isEmpty() ? keys : lack, Qt::AlignRight);
    line.setRight(line.right() - used - (used > 0 ? 2 * Margin : 0));
    painter->setPen(lack.isEmpty() ? text : quiet);
    line.setLeft(line.left() + Margin +
                 drawText(painter, line, index.data().toString(), Qt::AlignLeft));
    painter->setPen(quiet);
    drawText(painter, line, index.data(CFoundList::PlaceRole).toString(), Qt::AlignLeft);
    painter->restore();
}

QSize CFoundDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return {0, std::max(Icon, option.fontMetrics.height()) + Margin};
}
