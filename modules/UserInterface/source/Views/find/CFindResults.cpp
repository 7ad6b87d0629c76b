#include "CFindResults.h"

#include "CItemModel.h"
#include "ShownText.h"

#include <algorithm>

CFindResults::CFindResults(CFindSession *session, QObject *parent)
    : QAbstractListModel(parent), m_session(session)
{
}

QString CFindResults::pageOf(const CItemModel &item)
{
    const CItemModel *page = &item;
    while (page->parentItem())
        page = page->parentItem();
    return page == &item ? QString() : page->name();
}

void CFindResults::refresh(bool isReplacing)
{
    beginResetModel();
    m_isReplacing = isReplacing;
    m_rows.clear();
    m_rows.reserve(m_session->found().size());
    QSet<Place> unticked;
    for (const CFindSession::SFound &each : m_session->found()) {
        const CItemModel &item = *each.hit.item;
        m_rows.append({each, item.name(), pageOf(item), CItemFacets::kindName(item)});
        if (m_unticked.contains(placeOf(m_rows.constLast())))
            unticked.insert(placeOf(m_rows.constLast()));
    }
    m_unticked = unticked;
    endResetModel();
}

CItemModel *CFindResults::itemAt(int row) const
{
    if (row < 0 || row >= m_rows.size())
        return nullptr;
    CItemModel *item = m_rows.at(row).found.hit.item;
    return m_session->isGone(item) ? nullptr : item;
}

int CFindResults::rowOf(const CItemModel *item, const QString &key) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&](const SRow &each) {
        return placeOf(each) == Place(item, key);
    });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

bool CFindResults::isTickable(const SRow &row) const
{
    return m_isReplacing && row.found.replacement.refusal.isEmpty();
}

bool CFindResults::isTicked(const SRow &row) const
{
    return isTickable(row) && !m_unticked.contains(placeOf(row));
}

int CFindResults::tickableCount() const
{
    return int(std::count_if(m_rows.begin(), m_rows.end(),
                             [this](const SRow &each) { return isTickable(each); }));
}

int CFindResults::tickedCount() const
{
    return int(std::count_if(m_rows.begin(), m_rows.end(),
                             [this](const SRow &each) { return isTicked(each); }));
}

QVector<SReplacement> CFindResults::tickedReplacements() const
{
    QVector<SReplacement> replacements;
    for (const SRow &each : m_rows) {
        if (isTicked(each) && !m_session->isGone(each.found.hit.item))
            replacements.append(each.found.replacement);
    }
    return replacements;
}

void CFindResults::tickAll(bool isTicked)
{
    m_unticked.clear();
    if (!isTicked) {
        for (const SRow &each : qAsConst(m_rows))
            m_unticked.insert(placeOf(each));
    }
    if (!m_rows.isEmpty())
        Q_EMIT dataChanged(index(0), index(m_rows.size() - 1), {Qt::CheckStateRole});
    Q_EMIT ticksChanged();
}

/// What a narrow list has no room for.
QString CFindResults::toolTip(const SRow &row) const
{
    const SFacet &facet = row.found.hit.facet;
    QStringList lines = {
        row.name, row.page, row.kind,
        facet.key.isEmpty()
            ? QString()
            : QStringLiteral("%1 (%2): %3").arg(facet.caption, facet.key, row.found.hit.text)};
    if (isTickable(row))
        lines.append(QStringLiteral("\u2192 ") + row.found.replacement.text);
    else if (m_isReplacing)
        lines.append(row.found.replacement.refusal);
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

int CFindResults::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant CFindResults::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const SRow &row = m_rows.at(index.row());
    const SSearchHit &hit = row.found.hit;
    switch (role) {
    case Qt::DisplayRole: // for what reads the screen aloud
    case Qt::AccessibleTextRole:
        return row.page.isEmpty() ? row.name : row.name + QStringLiteral(", ") + row.page;
    case Qt::ToolTipRole:
        return ShownText::toolTip(toolTip(row));
    case Qt::CheckStateRole:
        return m_isReplacing ? QVariant(isTicked(row) ? Qt::Checked : Qt::Unchecked) : QVariant();
    case NameRole:
        return row.name;
    case PageRole:
        return row.page;
    case KindRole:
        return row.kind;
    case KeyRole:
        return hit.facet.key;
    case CaptionRole:
        return hit.facet.caption;
    case TextRole:
        return hit.text;
    case StartRole:
        return hit.found.start;
    case LengthRole:
        return hit.found.length;
    case AfterRole:
        return isTickable(row) ? QVariant(row.found.replacement.text) : QVariant();
    case RefusalRole:
        return m_isReplacing ? row.found.replacement.refusal : QString();
    case ItemRole:
        return QVariant::fromValue(itemAt(index.row()));
    default:
        return {};
    }
}

bool CFindResults::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid() || !isTickable(m_rows.at(index.row())))
        return false;
    if (value.toInt() == Qt::Checked)
        m_unticked.remove(placeOf(m_rows.at(index.row())));
    else
        m_unticked.insert(placeOf(m_rows.at(index.row())));
    Q_EMIT dataChanged(index, index, {role});
    Q_EMIT ticksChanged();
    return true;
}

Qt::ItemFlags CFindResults::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const bool canTick = index.isValid() && isTickable(m_rows.at(index.row()));
    return canTick ? flags | Qt::ItemIsUserCheckable : flags;
}
