#include "CHistoryModel.h"

#include "CThemeIcons.h"
#include "ShownText.h"
#include "StepNames.h"

#include <QUndoStack>

CHistoryModel::CHistoryModel(QObject *parent) : QAbstractListModel(parent)
{
}

void CHistoryModel::setStack(QUndoStack *stack)
{
    if (m_stack)
        m_stack->disconnect(this);
    beginResetModel();
    m_stack = stack;
    m_rows = stack ? stack->count() + 1 : 0;
    endResetModel();
    if (stack) {
        connect(stack, &QUndoStack::indexChanged, this, &CHistoryModel::follow);
        connect(stack, &QUndoStack::cleanChanged, this, &CHistoryModel::follow);
        connect(stack, &QObject::destroyed, this, [this] { setStack(nullptr); });
    }
    Q_EMIT currentChanged();
}

int CHistoryModel::current() const
{
    return m_stack ? m_stack->index() : -1;
}

/// Any row may say something else now; only those that are seen are asked.
void CHistoryModel::follow()
{
    const int rows = m_stack->count() + 1;
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    }
    if (rows < m_rows) {
        beginRemoveRows({}, rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    Q_EMIT dataChanged(index(0), index(m_rows - 1));
    Q_EMIT currentChanged();
}

int CHistoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

QVariant CHistoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !m_stack || index.row() > m_stack->count())
        return {};
    const bool isSaved = index.row() == m_stack->cleanIndex();
    switch (role) {
    case Qt::DisplayRole: {
        const QString text =
            index.row() == 0 ? tr("Beginning")
                             : ShownText::name(StepNames::of(*m_stack->command(index.row() - 1)));
        return isSaved ? tr("%1 (saved)").arg(text) : text;
    }
    case Qt::ToolTipRole:
        return ShownText::toolTip(index.data().toString());
    case Qt::DecorationRole:
        return isSaved ? CThemeIcons::icon(QStringLiteral(":/images/Save.png")) : QVariant();
    case UndoneRole:
        return index.row() > m_stack->index();
    case SavedRole:
        return isSaved;
    default:
        return {};
    }
}
