#include "CFoundList.h"

#include "CItemModel.h"
#include "CThemeIcons.h"
#include "CWindowActions.h"
#include "FuzzyMatch.h"
#include "ShownText.h"

#include <algorithm>

namespace {
constexpr int ForUse = 6;    // of the action that was used last; of the ones before less
constexpr int ForAction = 3; // where an item is called like an action, the action is meant
constexpr int ForScreen = 2;

int useOf(const CFoundList::SEntry &entry, const QStringList &lastUsed)
{
    const int at = entry.action ? lastUsed.indexOf(entry.action->objectName()) : -1;
    return at < 0 || entry.action->objectName().isEmpty() ? -1 : at;
}

int advance(const CFoundList::SEntry &entry, const QStringList &lastUsed)
{
    const int use = useOf(entry, lastUsed);
    if (entry.action)
        return ForAction + (use < 0 ? 0 : std::max(1, ForUse - use));
    return entry.item && entry.item->kind() == CItemModel::Kind::Screen ? ForScreen : 0;
}

QIcon iconOf(const CItemModel &item)
{
    const bool isScreen = item.kind() == CItemModel::Kind::Screen;
    const bool isGroup = item.kind() == CItemModel::Kind::Group;
    return CThemeIcons::icon(isScreen  ? QStringLiteral(":/images/screen.png")
                             : isGroup ? QStringLiteral(":/images/group.png")
                                       : QStringLiteral(":/images/widget.png"));
}

QString contextOf(const CFoundList::SEntry &entry)
{
    if (!entry.action)
        return entry.place;
    return entry.place + QLatin1Char(' ') + entry.action->shortcut().toString();
}
} // namespace

QVector<int> CFoundList::ranked(const QVector<SEntry> &entries, const QString &typed,
                                const QStringList &lastUsed)
{
    const bool isEmpty = typed.trimmed().isEmpty();
    QVector<std::pair<int, int>> found; // score and index
    for (int i = 0; i < entries.size(); ++i) {
        const SEntry &each = entries[i];
        if (isEmpty) {
            const int use = useOf(each, lastUsed);
            const int score = use >= 0 ? lastUsed.size() - use : 0;
            if (each.action || each.item->kind() == CItemModel::Kind::Screen)
                found.append({score, i});
        } else if (const auto score = FuzzyMatch::score(typed, each.name, contextOf(each))) {
            found.append({*score + advance(each, lastUsed), i});
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &left, const auto &right) { return left.first > right.first; });
    QVector<int> order;
    for (const auto &each : found.mid(0, MaxRows))
        order.append(each.second);
    return order;
}

void CFoundList::setEntries(const QVector<SEntry> &entries, const QStringList &lastUsed)
{
    beginResetModel();
    m_entries = entries;
    m_lastUsed = lastUsed;
    m_rows = ranked(m_entries, {}, m_lastUsed);
    endResetModel();
}

void CFoundList::setTyped(const QString &typed)
{
    beginResetModel();
    m_rows = ranked(m_entries, typed, m_lastUsed);
    endResetModel();
}

QString CFoundList::lackOf(const SEntry &entry)
{
    return entry.item || (entry.action && entry.action->isEnabled()) ? QString()
           : entry.action && !CWindowActions::lack(*entry.action).isEmpty()
               ? CWindowActions::lack(*entry.action)
               : QStringLiteral("–");
}

int CFoundList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant CFoundList::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const SEntry &found = entry(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return ShownText::name(found.name);
    case Qt::DecorationRole:
        return found.action ? found.action->icon() : iconOf(*found.item);
    case PlaceRole:
        return ShownText::name(found.place);
    case KeysRole:
        return found.action ? found.action->shortcut().toString(QKeySequence::NativeText)
                            : QString();
    case LackRole:
        return lackOf(found);
    case MarkRole:
        return found.action && found.action->isChecked();
    case Qt::AccessibleTextRole:
        return QStringList{ShownText::name(found.name), ShownText::name(found.place), lackOf(found)}
            .join(QStringLiteral(", "));
    default:
        return {};
    }
}
