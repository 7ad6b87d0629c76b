#include "CChangesModel.h"

#include "CPicturePairs.h"
#include "ShownText.h"

#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <QSet>

#include <algorithm>

namespace {

constexpr int SwatchSide = 12; // pixels

/// The notes of an item's change, in their order.
template<typename Note>
QVector<Note> notesOf(const SItemChange &change)
{
    QVector<Note> notes;
    if (!change.screenBefore.isNull())
        notes.append(Note::OtherPage);
    if (change.isRegrouped)
        notes.append(Note::OtherGroup);
    if (change.isReordered)
        notes.append(Note::OtherOrder);
    return notes;
}

/// On a check pattern, so that what shines through is seen.
QPixmap swatch(const QColor &colour)
{
    constexpr int scale = 2; // crisp where a pixel of Qt is two
    QPixmap pixmap(SwatchSide * scale, SwatchSide * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.fillRect(0, 0, SwatchSide / 2, SwatchSide / 2, Qt::lightGray);
    painter.fillRect(SwatchSide / 2, SwatchSide / 2, SwatchSide, SwatchSide, Qt::lightGray);
    painter.fillRect(0, 0, SwatchSide, SwatchSide, colour);
    painter.setPen(QPen(QColor(128, 128, 128), 1));
    painter.drawRect(QRectF(0.5, 0.5, SwatchSide - 1, SwatchSide - 1));
    return pixmap;
}

} // namespace

CChangesModel::CChangesModel(CComparison *comparison, QObject *parent)
    : QAbstractItemModel(parent), m_comparison(comparison)
{
}

void CChangesModel::update()
{
    beginResetModel();
    m_result = m_comparison->result();
    m_texts = m_result ? CChangeTexts(*m_comparison->earlier(), *m_comparison->project())
                       : CChangeTexts();
    m_tops = makeTops();
    endResetModel();
}

QVector<CChangesModel::STop> CChangesModel::makeTops() const
{
    QVector<STop> tops;
    if (!m_result)
        return tops;
    if (!m_result->changes.values.isEmpty())
        tops.append(STop());
    QSet<const SItemState *> listed;
    for (const SScreenChange &each : m_result->changes.screens) {
        tops.append({&each, each.before, each.after});
        listed.insert(each.after);
    }
    for (const SScreenPair &each : m_result->changes.pairs)
        if (!listed.contains(each.after) &&
            !m_comparison->pictures()->difference(each.after->item).isEmpty())
            tops.append({nullptr, each.before, each.after});
    return tops;
}

bool CChangesModel::updatePictures()
{
    const QVector<STop> tops = makeTops();
    const bool isSame = std::equal(tops.begin(), tops.end(), m_tops.begin(), m_tops.end(),
                                   [](const STop &a, const STop &b) { return a.now == b.now; });
    if (!isSame)
        return false;
    if (!tops.isEmpty())
        Q_EMIT dataChanged(index(0, NowColumn), index(tops.size() - 1, NowColumn));
    return true;
}

/// The number of an index: 0 for a top row, else 1 and the top row, and in the upper half 1 and the
/// number of the item.
CChangesModel::SPlace CChangesModel::placeOf(const QModelIndex &index)
{
    const quint64 id = index.internalId();
    if (id == 0)
        return {index.row(), -1, -1};
    return {int(id & 0xffffffff) - 1, int(id >> 32) - 1, index.row()};
}

QModelIndex CChangesModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, column, quintptr(0));
    const SPlace place = placeOf(parent);
    quint64 id = quint64(place.top) + 1;
    if (place.row >= 0) {
        const SItemChange *item = itemOf(parent);
        id |= quint64(item - m_tops.at(place.top).change->items.constData() + 1) << 32;
    }
    return createIndex(row, column, quintptr(id));
}

QModelIndex CChangesModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == 0)
        return {};
    const SPlace place = placeOf(index);
    if (place.item < 0)
        return createIndex(place.top, 0, quintptr(0));
    const SScreenChange &screen = *m_tops.at(place.top).change;
    const int row = screen.values.size() + (screen.isReordered ? 1 : 0) + place.item;
    return createIndex(row, 0, quintptr(place.top) + 1);
}

int CChangesModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return m_tops.size();
    if (parent.column() != 0)
        return 0;
    const STop &top = *topOf(parent);
    const SPlace place = placeOf(parent);
    if (place.row < 0) {
        const int values = valuesOf(top).size();
        return top.change ? values + (top.change->isReordered ? 1 : 0) + top.change->items.size()
                          : values;
    }
    const SItemChange *item = place.item < 0 ? itemOf(parent) : nullptr;
    return item ? item->values.size() + notesOf<ENote>(*item).size() : 0;
}

const CChangesModel::STop *CChangesModel::topOf(const QModelIndex &index) const
{
    return index.isValid() ? &m_tops.at(placeOf(index).top) : nullptr;
}

const QVector<SValueChange> &CChangesModel::valuesOf(const STop &top) const
{
    static const QVector<SValueChange> none;
    return top.change ? top.change->values : top.now ? none : m_result->changes.values;
}

const SItemChange *CChangesModel::itemOf(const QModelIndex &index) const
{
    const SPlace place = placeOf(index);
    const SScreenChange *screen = m_tops.at(place.top).change;
    if (!screen || place.row < 0)
        return nullptr;
    const int number = place.item >= 0
                           ? place.item
                           : place.row - screen->values.size() - (screen->isReordered ? 1 : 0);
    return number >= 0 ? &screen->items.at(number) : nullptr;
}

const SValueChange *CChangesModel::valueOf(const QModelIndex &index) const
{
    const SPlace place = placeOf(index);
    if (place.row < 0)
        return nullptr;
    const SItemChange *item = place.item >= 0 ? itemOf(index) : nullptr;
    const QVector<SValueChange> &values = item ? item->values : valuesOf(*topOf(index));
    return place.row < values.size() ? &values.at(place.row) : nullptr;
}

CChangesModel::ENote CChangesModel::noteOf(const QModelIndex &index) const
{
    const SPlace place = placeOf(index);
    if (place.row < 0)
        return ENote::None;
    if (place.item < 0)
        return itemOf(index) || valueOf(index) ? ENote::None : ENote::OtherOrder;
    const SItemChange &item = *itemOf(index);
    return notesOf<ENote>(item).value(place.row - item.values.size(), ENote::None);
}

CChangesModel::SSubject CChangesModel::subject(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const SItemChange *item = itemOf(index);
    const STop &top = *topOf(index);
    return item ? SSubject{item->before, item->after} : SSubject{top.before, top.now};
}

QString CChangesModel::keyOf(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const SSubject about = subject(index);
    const SItemState *state = about.now ? about.now : about.before;
    const SValueChange *value = valueOf(index);
    return QStringLiteral("%1 %2 %3")
        .arg(quintptr(state ? state->item : nullptr), 0, 16)
        .arg(int(noteOf(index)))
        .arg(value ? value->key : QString());
}

QString CChangesModel::topText(const STop &top) const
{
    if (!top.before && !top.now)
        return tr("Project");
    const QString name = ShownText::name((top.now ? top.now : top.before)->name);
    if (!top.change)
        return tr("Picture changed: %1").arg(name);
    switch (top.change->kind) {
    case SScreenChange::EKind::Added:
        return tr("Page added: %1").arg(name);
    case SScreenChange::EKind::Removed:
        return tr("Page removed: %1").arg(name);
    case SScreenChange::EKind::Changed:
        break;
    }
    return tr("Page changed: %1").arg(name);
}

QString CChangesModel::text(const QModelIndex &index) const
{
    const SPlace place = placeOf(index);
    if (place.row < 0)
        return topText(*topOf(index));
    switch (noteOf(index)) {
    case ENote::OtherPage:
        return tr("From another page: %1").arg(ShownText::name(itemOf(index)->screenBefore));
    case ENote::OtherGroup:
        return tr("In another group");
    case ENote::OtherOrder:
        return tr("In another order");
    case ENote::None:
        break;
    }
    if (const SValueChange *value = valueOf(index)) {
        const SSubject about = subject(index);
        return m_texts.caption(about.now ? about.now : about.before, value->key);
    }
    const SItemChange &item = *itemOf(index);
    const QString name = m_texts.name(item.any());
    switch (item.kind) {
    case SItemChange::EKind::Added:
        return tr("Added: %1").arg(name);
    case SItemChange::EKind::Removed:
        return tr("Removed: %1").arg(name);
    case SItemChange::EKind::Moved:
        return tr("Moved: %1").arg(name);
    case SItemChange::EKind::Changed:
        break;
    }
    return tr("Changed: %1").arg(name);
}

QVariant CChangesModel::valueData(const QModelIndex &index, const SValueChange &value,
                                  int role) const
{
    const bool isBefore = index.column() == BeforeColumn;
    const QString &text = isBefore ? value.before : value.after;
    const SItemState *item = isBefore ? before(index) : now(index);
    if (role == Qt::DisplayRole)
        return m_texts.value(item, value.key, text, isBefore);
    if (role == Qt::ToolTipRole)
        return ShownText::toolTip(text);
    if (role == Qt::DecorationRole) {
        const QColor colour = m_texts.colour(item, value.key, text);
        return colour.isValid() ? QVariant(swatch(colour)) : QVariant();
    }
    return {};
}

QVariant CChangesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() ||
        (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::DecorationRole))
        return {};
    const SPlace place = placeOf(index);
    const SValueChange *value = valueOf(index);
    if (index.column() != ChangeColumn && value)
        return valueData(index, *value, role);
    if (index.column() == NowColumn && place.row < 0 && role == Qt::DisplayRole) {
        const STop &top = *topOf(index);
        const auto pixels =
            top.now ? m_comparison->pictures()->difference(top.now->item).pixels : 0;
        return pixels > 0 ? tr("Pixels: %1").arg(QLocale().toString(pixels)) : QString();
    }
    if (index.column() != ChangeColumn || role == Qt::DecorationRole)
        return {};
    if (role == Qt::DisplayRole)
        return text(index);
    // What files, scripts and the command line call it.
    const SItemChange *item = itemOf(index);
    if (value)
        return ShownText::toolTip(value->key);
    return item ? ShownText::toolTip(item->any().typeName + QLatin1Char(' ') + item->any().idString)
                : QVariant();
}

QVariant CChangesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == ChangeColumn   ? tr("Change")
           : section == BeforeColumn ? tr("Before")
                                     : tr("Now");
}
