#include "CMemoryBar.h"

#include <QApplication>
#include <QLocale>
#include <QPainter>

namespace {

constexpr int BarHeight = 5; // pixels
constexpr int BarGap = 3;
constexpr int Margin = 4;
constexpr double Threshold = 0.8; // as the checks warn

QColor barColour(double share, const QPalette &palette, bool isSelected)
{
    if (share > 1)
        return {0xD8, 0x3B, 0x3B};
    if (share > Threshold)
        return {0xD9, 0x8A, 0x1B};
    return isSelected ? palette.color(QPalette::HighlightedText) : QColor(0x3D, 0x8F, 0xD1);
}

QString percentOf(double share)
{
    return CMemoryBar::tr("%1 %").arg(QLocale().toString(100 * share, 'f', 1));
}

} // namespace

double CMemoryBar::shareOf(const SMemoryUse &use)
{
    if (use.budget == 0)
        return use.used > 0 ? 2 : 0;
    return double(use.used) / double(use.budget);
}

QString CMemoryBar::textOf(const SMemoryUse &use)
{
    const QLocale locale;
    return tr("%1 of %2 (%3)")
        .arg(locale.toString(qulonglong(use.used)), locale.toString(qulonglong(use.budget)),
             percentOf(shareOf(use)));
}

void CMemoryBar::paint(QPainter *painter, const QStyleOptionViewItem &option,
                       const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QString text = cell.text;
    cell.text.clear();
    const QStyle *style = cell.widget ? cell.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

    const bool isSelected = cell.state & QStyle::State_Selected;
    const double share = index.data(ShareRole).toDouble();
    const QRect room = cell.rect.adjusted(Margin, 0, -Margin, 0);
    const int textHeight = cell.fontMetrics.height();
    const int top = room.top() + (room.height() - textHeight - BarGap - BarHeight) / 2;
    painter->save();
    painter->setFont(cell.font);
    painter->setPen(cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    const bool fits = cell.fontMetrics.horizontalAdvance(text) <= room.width();
    painter->drawText(QRect(room.left(), top, room.width(), textHeight), Qt::AlignVCenter,
                      fits ? text : percentOf(share)); // the tool tip has it all
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    QRectF bar(room.left(), top + textHeight + BarGap, room.width(), BarHeight);
    QColor track = cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    track.setAlphaF(0.2);
    painter->setBrush(track);
    painter->drawRoundedRect(bar, BarHeight / 2.0, BarHeight / 2.0);
    bar.setWidth(bar.width() * qBound(0.0, share, 1.0));
    painter->setBrush(barColour(share, cell.palette, isSelected));
    painter->drawRoundedRect(bar, BarHeight / 2.0, BarHeight / 2.0);
    painter->restore();
}

QSize CMemoryBar::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(option.fontMetrics.height() + BarGap + BarHeight + 2 * Margin);
    return size;
}
