#include "CBatchItems.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetLibraryModel.h"
#include "ItemGeometry.h"
#include "ItemNames.h"
#include "ItemNumbers.h"
#include "ItemTree.h"
#include "NumberExpression.h"
#include "PropertyKey.h"
#include "PropertyWords.h"
#include "ShownProperties.h"

#include <algorithm>
#include <cmath>

namespace {
bool isNumber(PropertyType type)
{
    return type == PropertyType::Int || type == PropertyType::Float;
}

bool isOfPlace(const QString &key)
{
    return key == PropertyKey::Name || key == PropertyKey::X || key == PropertyKey::Y;
}

/// The file of an image, which is chosen also where it is not typed.
bool isImage(const CItemModel &item, const QString &key)
{
    return item.hasProperty(PropertyKey::BitmapFolder) &&
           (key == PropertyKey::FileName ||
            (key == PropertyKey::BaseName && !item.hasProperty(PropertyKey::FileName)));
}

SPropertyLook lookOf(const CItemModel &item, const QString &key)
{
    return item.library() ? item.library()->look(item.itemTypeName(), key)
                          : SPropertyLook{key, QString(), SPropertyLook::EEditor::Plain};
}

/// Of a value that many may have.
bool isShared(const CItemModel &item, const CWidgetProperty &property)
{
    const QString &key = property.key();
    return (!property.isReadOnly() || isImage(item, key)) && key != PropertyKey::Id &&
           key != PropertyKey::PointList;
}

bool isGroup(const CItemModel &item)
{
    return item.kind() == CItemModel::Kind::Group;
}

CItemModel *screenOf(CItemModel *item)
{
    while (CItemModel *parent = item->parentItem())
        item = parent;
    return item;
}

/// What two kinds have under one key; nothing when it is not the same for both.
bool unite(CWidgetProperty &common, const CWidgetProperty &other)
{
    if (isNumber(common.propertyType()) && isNumber(other.propertyType())) {
        if (other.propertyType() == PropertyType::Float)
            common.setType(PropertyType::Float);
        const auto widest = [](const QVariant &left, const QVariant &right, bool isLeast) {
            if (!left.isValid() || !right.isValid())
                return QVariant();
            return QVariant(isLeast ? std::min(left.toInt(), right.toInt())
                                    : std::max(left.toInt(), right.toInt()));
        };
        common.setMinimum(widest(common.minimum(), other.minimum(), true));
        common.setMaximum(widest(common.maximum(), other.maximum(), false));
        return true;
    }
    if (common.propertyType() != other.propertyType())
        return false;
    if (common.propertyType() == PropertyType::Enum) {
        QStringList entries;
        for (const QString &each : common.enumerationEntries()) {
            if (other.enumerationEntries().contains(each))
                entries.append(each);
        }
        common.setEnumerationEntries(entries);
    }
    common.setMultiLine(common.isMultiLine() || other.isMultiLine());
    return true;
}

/// The number as the item may have it. A number that is beyond the limits already need not go back.
QVariant allowed(const CItemModel &item, const QString &key, double number)
{
    const CWidgetProperty property = item.properties().value(key);
    const double now = property.value().toDouble();
    if (property.minimum().isValid())
        number = std::max(number, std::min(now, property.minimum().toDouble()));
    if (property.maximum().isValid())
        number = std::min(number, std::max(now, property.maximum().toDouble()));
    if (property.propertyType() == PropertyType::Int)
        return static_cast<int>(roundedToInteger(number));
    constexpr double unit = 10000; // four decimals are shown
    return std::round(number * unit) / unit;
}
} // namespace

CBatchItems::CBatchItems(const QList<CItemModel *> &selected) : m_selected(selected)
{
    QVector<CItemModel *> contents;
    for (CItemModel *each : selected) {
        if (each->isUnderLock()) {
            ++m_locked;
            continue;
        }
        m_placed.append(each);
        if (!isGroup(*each)) {
            contents.append(each);
            continue;
        }
        forEachItem(*each, [&](CItemModel &member) {
            if (isGroup(member))
                return;
            if (member.isUnderLock())
                ++m_locked;
            else
                contents.append(&member);
        });
    }
    m_contents = contents.size();
    addKinds(m_placed, true);
    addKinds(contents, false);
    for (SRow &each : m_rows) {
        for (const int kind : qAsConst(each.kinds))
            each.count += m_kinds.at(kind).items.size();
    }
}

/// Items of a kind have the same properties, unless the library does not know it.
void CBatchItems::addKinds(const QVector<CItemModel *> &items, bool isPlaced)
{
    QHash<QString, int> kinds;
    for (CItemModel *each : items) {
        const CWidgetLibraryModel *library = each->library();
        const bool isKnown = each->kind() != CItemModel::Kind::Widget ||
                             (library && library->contains(each->itemTypeName()));
        const int known = isKnown ? kinds.value(each->itemTypeName(), -1) : -1;
        if (known >= 0) {
            m_kinds[known].items.append(each);
            continue;
        }
        m_kinds.append({{each}, isPlaced});
        kinds.insert(each->itemTypeName(), m_kinds.size() - 1);
        addRows(*each, m_kinds.size() - 1);
    }
}

void CBatchItems::addRows(const CItemModel &first, int kind)
{
    const bool isPlaced = m_kinds.at(kind).isPlaced;
    for (const CWidgetProperty &each : ShownProperties::of(first)) {
        if (!isShared(first, each) || isOfPlace(each.key()) != isPlaced)
            continue;
        const auto known = m_rowOf.constFind(each.key());
        if (known == m_rowOf.constEnd()) {
            m_rowOf.insert(each.key(), m_rows.size());
            m_rows.append(
                {each, {kind}, 0, isPlaced, isImage(first, each.key()), lookOf(first, each.key())});
        } else if (m_rows.at(*known).isImage == isImage(first, each.key()) &&
                   unite(m_rows[*known].definition, each)) {
            m_rows[*known].kinds.append(kind);
        }
    }
}

const CBatchItems::SRow *CBatchItems::find(const QString &key) const
{
    const auto found = m_rowOf.constFind(key);
    return found == m_rowOf.constEnd() ? nullptr : &m_rows.at(*found);
}

QVector<CBatchItems::SProperty> CBatchItems::properties() const
{
    QVector<SProperty> common;
    QVector<SProperty> others;
    for (const SRow &row : m_rows) {
        SProperty read;
        read.property = row.definition;
        read.look = row.look;
        read.count = row.count;
        read.isImage = row.isImage;
        read.isCommon = row.count == (row.isOfPlaced ? m_placed.size() : m_contents);
        const QString &key = row.definition.key();
        // A screen that was read has its colour as a text, which is shown as any colour is.
        CWidgetProperty first = row.definition;
        const CItemModel *shown = m_kinds.at(row.kinds.constFirst()).items.constFirst();
        first.setValueFromText(shown->propertyText(key));
        read.property = first;
        for (const int kind : row.kinds) {
            const QVector<CItemModel *> &items = m_kinds.at(kind).items;
            read.isMixed = read.isMixed ||
                           std::any_of(items.begin(), items.end(), [&](const CItemModel *each) {
                               return each->propertyText(key) != shown->propertyText(key);
                           });
        }
        (read.isCommon ? common : others).append(read);
    }
    std::stable_sort(
        others.begin(), others.end(),
        [](const SProperty &left, const SProperty &right) { return left.count > right.count; });
    return common + others;
}

QVector<CItemModel *> CBatchItems::with(const QString &key) const
{
    QVector<CItemModel *> items;
    if (const SRow *row = find(key)) {
        for (const int kind : row->kinds)
            items += m_kinds.at(kind).items;
    }
    return items;
}

PropertyStep::Changes CBatchItems::changes(const QString &key, const QVariant &value) const
{
    if (key == PropertyKey::Name)
        return renamed(value.toString());
    const SRow *row = find(key);
    const bool isOfNumbers = row && isNumber(row->definition.propertyType());
    PropertyStep::Changes made;
    for (CItemModel *each : with(key))
        made.append({each, key, isOfNumbers ? allowed(*each, key, value.toDouble()) : value});
    return made;
}

PropertyStep::Changes CBatchItems::changesTo(const QString &key, const QString &expression,
                                             QString *error, double unit) const
{
    PropertyStep::Changes made;
    for (CItemModel *each : with(key)) {
        const NumberExpression::SResult result = NumberExpression::evaluate(
            expression, each->propertyValue(key).toDouble() / unit,
            [each](const QString &name) { return ItemNumbers::find(*each, name); });
        if (!result) {
            *error = result.error;
            return {};
        }
        made.append({each, key, allowed(*each, key, result.value * unit)});
    }
    return made;
}

QVariant CBatchItems::stepped(const CItemModel &item, const QString &key, const QVariant &start,
                              double by)
{
    return allowed(item, key, start.toDouble() + by);
}

/// The first one gets the name, the others are counted; what has no name yet gets none.
PropertyStep::Changes CBatchItems::renamed(const QString &name) const
{
    PropertyStep::Changes made;
    if (name.trimmed().isEmpty() || m_placed.isEmpty())
        return made; // everything has a name
    if (m_placed.size() == 1)
        return {{m_placed.constFirst(), PropertyKey::Name,
                 ItemNames::wanted(*m_placed.constFirst(), name)}};
    const QSet<const CItemModel *> own(m_placed.begin(), m_placed.end());
    QHash<CItemModel *, ItemNames::Names> taken; // by screen; null: of the screens themselves
    const auto namesOf = [&](CItemModel *screen) -> ItemNames::Names & {
        const auto known = taken.find(screen);
        if (known != taken.end())
            return *known;
        ItemNames::Names &names = taken[screen];
        const auto take = [&](const CItemModel &each) {
            if (!own.contains(&each))
                names.insert(each.name());
        };
        const CProjectModel *project = m_placed.constFirst()->project();
        if (screen)
            forEachItem(*static_cast<const CItemModel *>(screen), take);
        for (int row = 0; !screen && row < project->screenCount(); ++row)
            take(*project->screen(row));
        return names;
    };
    for (CItemModel *each : m_placed) {
        CItemModel *screen = screenOf(each);
        ItemNames::Names &names = namesOf(screen == each ? nullptr : screen);
        const QString wanted = ItemNames::unused(name, names);
        names.insert(wanted);
        made.append({each, PropertyKey::Name, wanted});
    }
    return made;
}

QString CBatchItems::stepText(const QString &key, int items) const
{
    const QVector<CItemModel *> changed = with(key);
    return tr("Change %1 of %2 Items")
        .arg(changed.isEmpty() ? key : PropertyWords::caption(*changed.constFirst(), key))
        .arg(items);
}
