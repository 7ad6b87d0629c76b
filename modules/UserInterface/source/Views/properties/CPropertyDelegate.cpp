#include "CPropertyDelegate.h"

#include "CPropertyLayout.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QPainter>
#include <QStyle>
#include <QTreeWidget>
#include <QtTreePropertyBrowser>

namespace {
constexpr int NameColumn = 0;
constexpr int ValueColumn = 1;
constexpr int Margin = 3;               // before a text
const char partProperty[] = "kiv_part"; // of an editor: which value of its row it edits

QColor mixed(const QColor &a, const QColor &b)
{
    return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}
} // namespace

CPropertyDelegate::CPropertyDelegate(QtTreePropertyBrowser *browser, const CPropertyLayout *layout,
                                     const MakeEditor &makeEditor)
    : QItemDelegate(browser),
      m_browser(browser),
      m_tree(browser->findChild<QTreeWidget *>()),
      m_layout(layout),
      m_makeEditor(makeEditor)
{
    m_tree->setItemDelegate(this);
}

const QTreeWidgetItem *CPropertyDelegate::itemAt(const QModelIndex &index) const
{
    const QTreeWidgetItem *item = nullptr;
    QVector<int> rows;
    for (QModelIndex each = index; each.isValid(); each = each.parent())
        rows.prepend(each.row());
    for (const int row : qAsConst(rows))
        item = item ? item->child(row) : m_tree->topLevelItem(row);
    return item;
}

QRect CPropertyDelegate::partRect(const QTreeWidgetItem *item, const QRect &cell, int part) const
{
    if (!m_layout->pair(item))
        return cell;
    QRect half = cell;
    const int middle = cell.left() + cell.width() / 2;
    if (part == 0)
        half.setRight(middle - 2);
    else
        half.setLeft(middle + 1);
    return half;
}

int CPropertyDelegate::partAt(const QTreeWidgetItem *item, const QPoint &position) const
{
    const int left = m_tree->columnViewportPosition(ValueColumn);
    const int middle = left + m_tree->columnWidth(ValueColumn) / 2;
    return m_layout->pair(item) && position.x() > middle ? 1 : 0;
}

QRect CPropertyDelegate::valueRect(const QTreeWidgetItem *item, int part) const
{
    QRect cell = m_tree->visualItemRect(item);
    cell.setLeft(m_tree->columnViewportPosition(ValueColumn));
    cell.setWidth(m_tree->columnWidth(ValueColumn));
    QRect rect = partRect(item, cell, part);
    if (m_layout->pair(item)) { // all values below each other, whichever letters stand before them
        const QFontMetrics metrics = m_tree->fontMetrics();
        rect.setLeft(rect.left() + Margin + m_layout->widestLetter(metrics) + Margin);
    }
    return rect;
}

int CPropertyDelegate::letterAt(const QPoint &position) const
{
    const QTreeWidgetItem *item = m_tree->itemAt(position);
    if (!item || !m_layout->pair(item) || m_tree->columnAt(position.x()) != ValueColumn)
        return -1;
    const int part = partAt(item, position);
    return position.x() < valueRect(item, part).left() ? part : -1;
}

QtProperty *CPropertyDelegate::currentProperty() const
{
    if (m_part == 1) {
        if (const CPropertyLayout::SPair *pair = m_layout->pair(m_tree->currentItem()))
            return pair->property;
    }
    const QtBrowserItem *current = m_browser->currentItem();
    return current ? current->property() : nullptr;
}

void CPropertyDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    const QTreeWidgetItem *item = itemAt(index);
    if (!item)
        return;
    if (m_layout->isHeading(item)) {
        paintHeading(painter, option, item);
        return;
    }
    QStyleOptionViewItem cell = option;
    cell.state &= ~QStyle::State_HasFocus;
    if (index.column() == ValueColumn && m_layout->pair(item)) {
        paintPair(painter, cell, item, index);
        return;
    }
    if (index.column() == ValueColumn) {
        QItemDelegate::paint(painter, cell, index);
        return;
    }
    drawBackground(painter, cell, index);
    drawDisplay(painter, cell, cell.rect, m_layout->caption(item));
    if (item->isFirstColumnSpanned())
        return;
    const auto line = static_cast<QRgb>(
        QApplication::style()->styleHint(QStyle::SH_Table_GridLineColor, &option));
    painter->setPen(QColor(line));
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
}

void CPropertyDelegate::paintHeading(QPainter *painter, const QStyleOptionViewItem &option,
                                     const QTreeWidgetItem *item) const
{
    const QPalette &palette = option.palette;
    const QRect rect(0, option.rect.top(), m_tree->viewport()->width(), option.rect.height());
    painter->save();
    painter->fillRect(rect, palette.color(QPalette::Window));
    const QColor text = palette.color(QPalette::Text);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(mixed(text, palette.color(QPalette::Window)), 1.5, Qt::SolidLine,
                         Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle(option.rect.left() - m_tree->indentation() / 2.0, rect.center().y() + 0.5);
    const QPolygonF arrow = m_layout->isOpen(item)
                                ? QPolygonF({{-3.5, -1.75}, {0, 1.75}, {3.5, -1.75}})
                                : QPolygonF({{-1.75, -3.5}, {1.75, 0}, {-1.75, 3.5}});
    painter->drawPolyline(arrow.translated(middle));
    QFont font = option.font;
    font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    painter->setPen(text);
    const QRect place = option.rect.adjusted(Margin, 0, -Margin, 0);
    painter->drawText(
        place, Qt::AlignVCenter,
        QFontMetrics(font).elidedText(item->text(NameColumn), Qt::ElideRight, place.width()));
    if (m_tree->currentItem() == item && m_tree->hasFocus()) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(palette.color(QPalette::Highlight));
        painter->drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -1.5));
    }
    painter->restore();
}

void CPropertyDelegate::paintPair(QPainter *painter, const QStyleOptionViewItem &option,
                                  const QTreeWidgetItem *item, const QModelIndex &index) const
{
    drawBackground(painter, option, index);
    const CPropertyLayout::SPair *pair = m_layout->pair(item);
    const QTreeWidgetItem *rows[] = {item, pair->second};
    for (int part = 0; part < 2; ++part) {
        const QRect half = partRect(item, option.rect, part);
        const QRect value = valueRect(item, part);
        QStyleOptionViewItem letter = option;
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            letter.palette.setColor(group, QPalette::Text,
                                    mixed(option.palette.color(group, QPalette::Text),
                                          option.palette.color(group, QPalette::Base)));
        drawDisplay(painter, letter, {half.topLeft(), QPoint(value.left(), half.bottom())},
                    pair->letters[size_t(part)]);
        drawDisplay(painter, option,
                    {value.left(), half.top(), half.right() - value.left(), half.height()},
                    rows[part]->text(ValueColumn));
    }
}

QSize CPropertyDelegate::sizeHint(const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    return QItemDelegate::sizeHint(option, index) + QSize(3, 4);
}

QWidget *CPropertyDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                         const QModelIndex &index) const
{
    const QTreeWidgetItem *item = itemAt(index);
    if (index.column() != ValueColumn || !item || item != m_tree->currentItem() ||
        !(item->flags() & Qt::ItemIsEnabled))
        return nullptr;
    QtProperty *property = currentProperty();
    QWidget *editor = property ? m_makeEditor(property, parent) : nullptr;
    if (!editor)
        return nullptr;
    editor->setAutoFillBackground(true);
    editor->setProperty(partProperty, m_part);
    if (auto *box = qobject_cast<QAbstractSpinBox *>(editor); box && m_layout->pair(item))
        box->setButtonSymbols(QAbstractSpinBox::NoButtons); // half a row is for the digits
    return editor;
}

void CPropertyDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                             const QModelIndex &index) const
{
    const QTreeWidgetItem *item = itemAt(index);
    QRect rect = option.rect;
    if (item && m_layout->pair(item))
        rect = valueRect(item, editor->property(partProperty).toInt());
    editor->setGeometry(rect.adjusted(0, 0, 0, -1));
}

/// Another window in front, a dialog of the editor for instance, does not end the edit.
bool CPropertyDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent *>(event)->reason() == Qt::ActiveWindowFocusReason)
        return false;
    return QItemDelegate::eventFilter(watched, event);
}
