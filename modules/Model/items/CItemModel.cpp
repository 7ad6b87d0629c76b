#include "CItemModel.h"

#include "CItemParts.h"
#include "CWidgetLibraryModel.h"
#include "IPropertyChangeObserver.h"
#include "PropertyKey.h"

CItemModel::CItemModel(Kind kind, const QString &typeName, const CWidgetLibraryModel *library,
                       IPropertyChangeObserver *observer)
    : m_library(library),
      m_observer(observer),
      m_typeName(typeName),
      m_typeNameUtf8(typeName.toUtf8()),
      m_kind(kind),
      m_parts(std::make_unique<SParts>(*this))
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
    copy->m_parts->table.setAll(properties());
    copy->m_idText = m_idText;
    copy->m_idTextUtf8 = m_idTextUtf8;
    copy->m_id = m_id;
    copy->m_parts->geometry.copyFrom(m_parts->geometry);
    copy->m_locked = m_locked;
    copy->m_hidden = m_hidden;
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

void CItemModel::addProperty(const CWidgetProperty &property)
{
    m_parts->table.insert(property);
    applyProperty(property.key(), property.value());
}

void CItemModel::setPropertySet(const PropertySet &properties)
{
    QStringList keys = properties.keys();
    keys.sort(); // what is applied last decides where properties contradict each other
    takePropertySet(properties, keys);
}

/// By name, because applying one property may change another.
void CItemModel::takePropertySet(const PropertySet &properties, const QStringList &order)
{
    m_parts->table.setAll(properties);
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

    CPropertyTable &table = m_parts->table;
    CWidgetProperty *property = table.findForChange(key);
    if (property && (value.isValid() || isBuiltIn(key))) {
        property->setValue(value);
    } else if (property) {
        table.remove(key);
    } else if (value.isValid() && !key.isEmpty()) {
        CWidgetProperty added(key, PropertyType::String);
        added.setValue(value);
        table.insert(added);
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

/// Derives what follows from a property.
void CItemModel::applyProperty(const QString &name, const QVariant &value)
{
    if (name == PropertyKey::Name) {
        m_name = value.toString();
        QStandardItem::setData(m_name, Qt::DisplayRole);
    } else if (name == PropertyKey::Id) {
        m_id = value.toUInt();
        m_idText = value.toString();
        m_idTextUtf8 = m_idText.toUtf8();
    } else if (name == PropertyKey::Locked) {
        m_locked = m_kind != Kind::Screen && value.toBool();
        emitDataChanged(); // views show a lock
    } else if (name == PropertyKey::Hidden) {
        m_hidden = m_kind != Kind::Screen && value.toBool();
        emitDataChanged();
    } else {
        m_parts->geometry.apply(name, value, *m_parts);
    }
}

bool CItemModel::isDerivedFrom(const QString &name)
{
    return name == PropertyKey::Name || name == PropertyKey::Id || name == PropertyKey::Locked ||
           name == PropertyKey::Hidden || CItemGeometry::isGeometry(name);
}

void CItemModel::SParts::writeBack(const QString &name, const QVariant &value, bool notify)
{
    const CWidgetProperty *property = table.find(name);
    if (!property)
        return;
    // A box has nothing to agree with but its own text.
    const bool keepText =
        keepsText(*property) || (isLoading && geometry.values().mode == GeometryMode::Box);
    if (!keepText)
        item.setPropertyIfChanged(name, value, notify ? Notify::Yes : Notify::No);
}

void CItemModel::SParts::storeDerived(const QString &name, double size)
{
    CWidgetProperty *property = table.findForChange(name);
    if (property && !keepsText(*property))
        property->setValue(size);
}

const CItemModel::PropertySet &CItemModel::properties() const
{
    return m_parts->table.all();
}

bool CItemModel::hasProperty(const QString &name) const
{
    return m_parts->table.contains(name);
}

QVariant CItemModel::propertyValue(const QString &name) const
{
    return m_parts->table.value(name);
}

QString CItemModel::propertyText(const QString &name) const
{
    return m_parts->table.text(name);
}

int CItemModel::propertyCount()
{
    return m_parts->table.all().size();
}

IModelProperty *CItemModel::property(int index)
{
    return m_parts->table.at(index);
}

const char *CItemModel::renderCommands()
{
    return m_kind == Kind::Widget && m_library ? m_library->renderCommandsUtf8(m_typeName) : "";
}

const ItemGeometry &CItemModel::geometry() const
{
    return m_parts->geometry.values();
}

double CItemModel::x() const
{
    return geometry().x;
}

double CItemModel::y() const
{
    return geometry().y;
}

double CItemModel::x2() const
{
    return geometry().x2;
}

double CItemModel::y2() const
{
    return geometry().y2;
}

double CItemModel::width() const
{
    return geometry().width;
}

double CItemModel::height() const
{
    return geometry().height;
}

double CItemModel::angle() const
{
    return geometry().angle;
}

double CItemModel::radius() const
{
    return geometry().radius;
}

qint32 CItemModel::fontHandle() const
{
    return geometry().fontHandle;
}

GeometryMode CItemModel::geometryMode() const
{
    return geometry().mode;
}

bool CItemModel::isResizeable() const
{
    return geometry().resizeable;
}

bool CItemModel::hasAngle() const
{
    return geometry().hasAngle;
}

bool CItemModel::hasPointList() const
{
    return geometry().hasPointList;
}

bool CItemModel::isHeightFromFont() const
{
    return geometry().heightFromFont;
}

void CItemModel::setWidth(double width)
{
    m_parts->geometry.setWidth(width, *m_parts);
}

void CItemModel::setHeight(double height)
{
    m_parts->geometry.setHeight(height, *m_parts);
}

void CItemModel::setRadius(double radius)
{
    m_parts->geometry.setRadius(radius, *m_parts);
}

void CItemModel::setAngle(double degrees)
{
    m_parts->geometry.setAngle(degrees, *m_parts);
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

bool CItemModel::isUnderHidden() const
{
    const CItemModel *item = this;
    while (item && !item->m_hidden)
        item = item->parentItem();
    return item != nullptr;
}

void CItemModel::setHidden(bool hidden)
{
    setProperty(PropertyKey::Hidden, hiddenValue(hidden));
}

void CItemModel::setLocked(bool locked)
{
    setProperty(PropertyKey::Locked, lockValue(locked));
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
    if (library)
        m_parts->table.takeDefinitions(library->propertySet(m_typeName));
    for (int row = 0; row < rowCount(); ++row) {
        if (CItemModel *member = childItem(row))
            member->setLibrary(library);
    }
}

CProjectModel *CItemModel::project() const
{
    return m_observer ? m_observer->project() : nullptr;
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
