#include "CItemModel.h"

#include "CProjectModel.h"
#include "CWidgetGroupModel.h"
#include "CWidgetModel.h"
#include "PropertyKey.h"

#include <QScopedValueRollback>

#include <algorithm>

CItemModel::CItemModel(Kind kind, const QString &typeName, const CWidgetLibraryModel *library,
                       IPropertyChangeObserver *observer)
    : m_library(library),
      m_observer(observer),
      m_typeName(typeName),
      m_typeNameUtf8(typeName.toUtf8()),
      m_kind(kind)
{
}

CItemModel::~CItemModel() = default;

const CItemModel *CItemModel::fromItem(const QStandardItem *item)
{
    const bool isModelItem =
        item && item->type() > UserType && item->type() <= UserType + static_cast<int>(Kind::Group);
    return isModelItem ? static_cast<const CItemModel *>(item) : nullptr;
}

CItemModel *CItemModel::fromItem(QStandardItem *item)
{
    return const_cast<CItemModel *>(fromItem(static_cast<const QStandardItem *>(item)));
}

CItemModel *CItemModel::clone() const
{
    CItemModel *copy = cloneEmpty();
    copy->m_properties = m_properties;
    copy->m_index.clear();
    copy->m_idText = m_idText;
    copy->m_idTextUtf8 = m_idTextUtf8;
    copy->m_id = m_id;
    copy->m_geometry = m_geometry;
    copy->m_locked = m_locked;
    copy->m_name = m_name;
    copy->QStandardItem::setData(text(), Qt::DisplayRole);

    QVector<CItemModel *> children;
    for (int row = 0; row < rowCount(); ++row) {
        if (const CItemModel *member = childItem(row))
            children.append(member->clone());
    }
    copy->appendChildren(children);
    return copy;
}

void CItemModel::setData(const QVariant &value, int role)
{
    const bool isText = role == Qt::EditRole || role == Qt::DisplayRole;
    if (isText && hasProperty(PropertyKey::Name) && value.toString() != m_name)
        setProperty(PropertyKey::Name, value.toString());
    else
        QStandardItem::setData(value, role);
}

void CItemModel::insertProperty(const CWidgetProperty &property)
{
    m_index.clear();
    m_properties.insert(property.key(), property);
}

void CItemModel::addProperty(const CWidgetProperty &property)
{
    insertProperty(property);
    applyProperty(property.key(), property.value());
}

void CItemModel::setPropertySet(const PropertySet &properties)
{
    QStringList keys = properties.keys();
    keys.sort(); // what is applied last decides where properties contradict each other
    takePropertySet(properties, keys);
}

/// Takes the set and derives what follows from it in the given order. By name, because applying
/// one property may change another.
void CItemModel::takePropertySet(const PropertySet &properties, const QStringList &order)
{
    m_index.clear();
    m_properties = properties;
    for (const QString &key : order)
        applyProperty(key, propertyValue(key));
}

void CItemModel::setProperties(const QVector<CWidgetProperty> &properties)
{
    for (const CWidgetProperty &property : properties)
        addProperty(property);
}

void CItemModel::setProperty(const QString &name, const QVariant &value, Notify notify)
{
    QString key = name;
    if (!hasProperty(key)) {
        if (key == PropertyKey::ShortX)
            key = PropertyKey::X;
        else if (key == PropertyKey::ShortY)
            key = PropertyKey::Y;
    }

    CWidgetProperty *property = findProperty(key);
    if (property && (value.isValid() || isBuiltIn(key))) {
        property->setValue(value);
    } else if (property) {
        m_index.clear();
        m_properties.remove(key);
    } else if (value.isValid() && !key.isEmpty()) {
        CWidgetProperty added(key, PropertyType::String);
        added.setValue(value);
        insertProperty(added);
    }
    applyProperty(key, value);
    if (notify == Notify::Yes && m_observer) // what is stored now, rounded where the item rounds
        m_observer->onPropertyChanged(this, key, hasProperty(key) ? propertyValue(key) : value);
}

void CItemModel::setPropertyIfChanged(const QString &name, const QVariant &value, Notify notify)
{
    if (propertyValue(name) != value)
        setProperty(name, value, notify);
}

QVariant CItemModel::propertyValue(const QString &name) const
{
    const auto it = m_properties.constFind(name);
    return it == m_properties.constEnd() ? QVariant() : it->value();
}

QString CItemModel::propertyText(const QString &name) const
{
    const auto it = m_properties.constFind(name);
    return it == m_properties.constEnd() ? QString() : it->text();
}

int CItemModel::propertyCount()
{
    return m_properties.size();
}

IModelProperty *CItemModel::property(int index)
{
    if (m_index.size() != m_properties.size()) {
        m_index.clear();
        m_index.reserve(m_properties.size());
        for (CWidgetProperty &each : m_properties)
            m_index.append(&each);
    }
    return m_index.at(index);
}

const char *CItemModel::renderCommands()
{
    return m_kind == Kind::Widget && m_library ? m_library->renderCommandsUtf8(m_typeName) : "";
}

void CItemModel::notifyGeometryChanged()
{
    if (m_observer)
        m_observer->onGeometryChanged(this);
}

bool CItemModel::isUnderLock() const
{
    const CItemModel *item = this;
    while (item && !item->m_locked)
        item = item->parentItem();
    return item != nullptr;
}

QVariant CItemModel::lockValue(bool locked) const
{
    return locked || isBuiltIn(PropertyKey::Locked) ? QVariant(locked ? 1 : 0) : QVariant();
}

void CItemModel::setGrouped(bool grouped)
{
    m_grouped = grouped;
    setSelectable(!grouped);
}

void CItemModel::setLibrary(const CWidgetLibraryModel *library)
{
    m_library = library;
    const PropertySet definitions = library ? library->propertySet(m_typeName) : PropertySet();
    for (auto definition = definitions.begin(); definition != definitions.end(); ++definition) {
        if (CWidgetProperty *property = findProperty(definition.key()))
            property->takeDefinition(*definition);
    }
    for (int row = 0; row < rowCount(); ++row) {
        if (CItemModel *member = childItem(row))
            member->setLibrary(library);
    }
}

CProjectModel *CItemModel::project() const
{
    return dynamic_cast<CProjectModel *>(m_observer);
}

void CItemModel::load(const ItemAttributes &attributes)
{
    const QScopedValueRollback<bool> loading(m_loading, true);
    takeAttributes(attributes);
}

QString CItemModel::savedText(const CWidgetProperty &property, FolderForm folders) const
{
    const CProjectModel *owner = CImagePlaces::isPlace(property.key()) ? project() : nullptr;
    if (!owner)
        return property.text();
    return folders == FolderForm::Relative ? owner->storedFolder(property.text())
                                           : owner->absoluteFolder(property.text());
}

QByteArray CItemModel::savedTextUtf8(const CWidgetProperty &property, FolderForm folders) const
{
    return CImagePlaces::isPlace(property.key()) ? savedText(property, folders).toUtf8()
                                                 : property.textUtf8();
}

CItemModel *CItemModel::makeChild(const QString &tag) const
{
    if (tag == TypeName::Group)
        return new CWidgetGroupModel(m_library, m_observer);
    return new CWidgetModel(tag, m_library, m_observer);
}

void CItemModel::appendChildren(const QVector<CItemModel *> &children)
{
    QList<QStandardItem *> rows;
    rows.reserve(children.size());
    for (CItemModel *each : children)
        rows.append(each);
    if (!rows.isEmpty())
        appendRows(rows);
}

QVector<const CWidgetProperty *> CItemModel::orderedProperties(const QStringList &order) const
{
    QVector<const CWidgetProperty *> ordered;
    ordered.reserve(m_properties.size());
    for (const QString &key : order) {
        const auto it = m_properties.constFind(key);
        if (it != m_properties.constEnd())
            ordered.append(&it.value());
    }
    if (ordered.size() == m_properties.size())
        return ordered;

    const int known = ordered.size();
    for (const CWidgetProperty &each : m_properties) {
        if (!order.contains(each.key()))
            ordered.append(&each);
    }
    std::sort(
        ordered.begin() + known, ordered.end(),
        [](const CWidgetProperty *a, const CWidgetProperty *b) { return a->key() < b->key(); });
    return ordered;
}

CWidgetProperty *CItemModel::findProperty(const QString &name)
{
    m_index.clear(); // finding for a change may move shared properties
    const auto it = m_properties.find(name);
    return it == m_properties.end() ? nullptr : &it.value();
}
