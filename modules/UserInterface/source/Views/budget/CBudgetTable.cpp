#include "CBudgetTable.h"

#include "ShownText.h"

#include <QFont>
#include <QLocale>
#include <QPixmap>

#include <algorithm>

namespace {

bool isText(const QVariant &cell)
{
    return cell.type() == QVariant::String;
}

bool isFigure(const QVariant &cell)
{
    return cell.userType() == qMetaTypeId<CBudgetTable::SFigure>();
}

double numberOf(const QVariant &cell)
{
    return isFigure(cell) ? cell.value<CBudgetTable::SFigure>().value : cell.toDouble();
}

bool isLess(const QVariant &a, const QVariant &b)
{
    if (isText(a) && isText(b))
        return QString::localeAwareCompare(a.toString(), b.toString()) < 0;
    return numberOf(a) < numberOf(b);
}

QString shown(const QVariant &cell)
{
    if (isText(cell))
        return ShownText::name(cell.toString());
    if (isFigure(cell))
        return cell.value<CBudgetTable::SFigure>().text;
    if (cell.type() == QVariant::Double)
        return QLocale().toString(100 * cell.toDouble(), 'f', 1) + QStringLiteral(" %");
    return QLocale().toString(cell.toLongLong());
}

} // namespace

void CBudgetTable::setHeaders(const QStringList &headers)
{
    beginResetModel();
    m_headers = headers;
    endResetModel();
}

void CBudgetTable::setRows(const QVector<SRow> &rows)
{
    beginResetModel();
    m_rows = rows;
    sortRows();
    endResetModel();
}

int CBudgetTable::rowOf(const QString &key) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&key](const SRow &row) { return row.key == key; });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

QIcon CBudgetTable::iconOf(const QImage &picture)
{
    constexpr int Side = 32;
    QPixmap icon = QPixmap::fromImage(picture);
    if (icon.isNull()) {
        icon = QPixmap(Side, Side);
        icon.fill(Qt::transparent);
    }
    return icon;
}

int CBudgetTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int CBudgetTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_headers.size();
}

QVariant CBudgetTable::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const SRow &row = m_rows[index.row()];
    const QVariant cell = row.cells.value(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return cell.isValid() ? shown(cell) : QVariant();
    case Qt::DecorationRole:
        return index.column() == 0 && !row.icon.isNull() ? QVariant(row.icon) : QVariant();
    case Qt::ToolTipRole:
        return row.toolTip.isEmpty() ? QVariant() : ShownText::toolTip(row.toolTip);
    case Qt::FontRole: {
        QFont font;
        font.setBold(true);
        return row.isStrong ? QVariant(font) : QVariant();
    }
    case Qt::CheckStateRole:
        return index.column() == 0 && row.tick ? QVariant(*row.tick ? Qt::Checked : Qt::Unchecked)
                                               : QVariant();
    case Qt::TextAlignmentRole:
        return int((isText(cell) ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    default:
        return {};
    }
}

Qt::ItemFlags CBudgetTable::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    const bool canTick = index.isValid() && index.column() == 0 && m_rows[index.row()].tick;
    return canTick ? usual | Qt::ItemIsUserCheckable : usual;
}

bool CBudgetTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable))
        return false;
    const bool isOn = value.toInt() == Qt::Checked;
    m_rows[index.row()].tick.emplace(isOn);
    Q_EMIT dataChanged(index, index);
    Q_EMIT ticked(m_rows[index.row()].key, isOn);
    return true;
}

QVariant CBudgetTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return m_headers.value(section);
}

void CBudgetTable::sort(int column, Qt::SortOrder order)
{
    m_column = column;
    m_order = order;
    Q_EMIT layoutAboutToBeChanged(); // what is chosen stays chosen
    const QModelIndexList before = persistentIndexList();
    QStringList keys;
    for (const QModelIndex &each : before)
        keys.append(m_rows[each.row()].key);
    sortRows();
    QModelIndexList after;
    for (int i = 0; i < before.size(); ++i)
        after.append(index(rowOf(keys[i]), before[i].column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

void CBudgetTable::sortRows()
{
    if (m_column < 0)
        return;
    std::stable_sort(m_rows.begin(), m_rows.end(), [this](const SRow &a, const SRow &b) {
        const QVariant left = a.cells.value(m_column);
        const QVariant right = b.cells.value(m_column);
        return m_order == Qt::AscendingOrder ? isLess(left, right) : isLess(right, left);
    });
}
