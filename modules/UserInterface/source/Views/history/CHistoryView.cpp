#include "CHistoryView.h"

#include <QPainter>
#include <QStyledItemDelegate>
#include <QUndoStack>

namespace {
/// What could be redone is faint, and all texts stand in one column.
class CStepDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// As wide as the view: what does not fit is cut.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return {0, QStyledItemDelegate::sizeHint(option, index).height()};
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features |= QStyleOptionViewItem::HasDecoration;
        const QPalette &palette = option->widget ? option->widget->palette() : option->palette;
        const bool isUndone = index.data(CHistoryModel::UndoneRole).toBool();
        option->palette.setBrush(
            QPalette::Text, palette.brush(isUndone ? QPalette::PlaceholderText : QPalette::Text));
    }
};
} // namespace

CHistoryView::CHistoryView(QWidget *parent) : QListView(parent)
{
    setObjectName(QStringLiteral("historyList"));
    setModel(&m_model);
    setItemDelegate(new CStepDelegate(this));
    setUniformItemSizes(true);
    setIconSize(QSize(16, 16));
    setEditTriggers(NoEditTriggers);
    connect(this, &QListView::clicked, this, &CHistoryView::go);
    connect(this, &QListView::activated, this, &CHistoryView::go);
    connect(&m_model, &CHistoryModel::currentChanged, this, &CHistoryView::showCurrent);
}

void CHistoryView::setStack(QUndoStack *stack)
{
    m_stack = stack;
    m_model.setStack(stack);
}

void CHistoryView::go(const QModelIndex &index)
{
    const int wanted = index.row();
    Q_EMIT aboutToGo();
    if (m_stack && wanted <= m_stack->count())
        m_stack->setIndex(wanted);
}

void CHistoryView::showCurrent()
{
    const QModelIndex current = m_model.index(m_model.current());
    setCurrentIndex(current);
    scrollTo(current);
}

void CHistoryView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (m_model.rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, tr("No project"));
}
