#include "CWidgetGroupModel.h"

#include "CWidgetProperty.h"
#include "ItemGeometry.h"
#include "ItemXml.h"
#include "PropertyKey.h"

#include <cmath>

namespace {
CWidgetProperty makeProperty(const QString &name, PropertyType type, const QString &text)
{
    CWidgetProperty property(name, type);
    property.setValueFromText(text);
    return property;
}

/// The sum as a coordinate: whole where it is whole. Cut to millionths, so that many small moves
/// of a drag end where one large move does.
QVariant movedCoordinate(double from, double by)
{
    const double sum = std::round((from + by) * 1e6) / 1e6;
    return sum == static_cast<double>(roundedToInteger(sum))
               ? QVariant(static_cast<int>(roundedToInteger(sum)))
               : QVariant(sum);
}

void moveProperty(CItemModel &item, const QString &name, double by, CItemModel::Notify notify)
{
    if (item.hasProperty(name))
        item.setProperty(name, movedCoordinate(item.propertyValue(name).toDouble(), by), notify);
}
} // namespace

CWidgetGroupModel::CWidgetGroupModel(const CWidgetLibraryModel *library,
                                     IPropertyChangeObserver *observer)
    : CItemModel(Kind::Group, TypeName::Group, library, observer)
{
    setEditable(false);
    addProperty(
        makeProperty(PropertyKey::Name, PropertyType::String, QStringLiteral("Widget Group")));
    addProperty(makeProperty(PropertyKey::X, PropertyType::Int, QStringLiteral("0")));
    addProperty(makeProperty(PropertyKey::Y, PropertyType::Int, QStringLiteral("0")));
}

void CWidgetGroupModel::loadFromElement(const QDomElement &element)
{
    ItemXml::read(*this, element);
}

void CWidgetGroupModel::saveToElement(QDomElement &element) const
{
    ItemXml::write(*this, element);
}

const QStringList &CWidgetGroupModel::builtInKeys()
{
    static const QStringList keys = {PropertyKey::Name, PropertyKey::X, PropertyKey::Y};
    return keys;
}

void CWidgetGroupModel::setProperty(const QString &name, const QVariant &value, Notify notify)
{
    const double oldX = x();
    const double oldY = y();
    CItemModel::setProperty(name, value, notify);
    if (!model() || (x() == oldX && y() == oldY))
        return;
    for (int row = 0; row < rowCount(); ++row) {
        CItemModel *member = childItem(row);
        if (!member || member->isLocked())
            continue;
        if (x() != oldX) {
            moveProperty(*member, PropertyKey::X, x() - oldX, notify);
            moveProperty(*member, PropertyKey::X2, x() - oldX, notify);
        }
        if (y() != oldY) {
            moveProperty(*member, PropertyKey::Y, y() - oldY, notify);
            moveProperty(*member, PropertyKey::Y2, y() - oldY, notify);
        }
    }
}

void CWidgetGroupModel::appendChildren(const QVector<CItemModel *> &children)
{
    for (CItemModel *each : children)
        each->setGrouped(true);
    CItemModel::appendChildren(children);
}

CItemModel *CWidgetGroupModel::cloneEmpty() const
{
    return new CWidgetGroupModel(library(), observer());
}

bool CWidgetGroupModel::isBuiltIn(const QString &name) const
{
    return builtInKeys().contains(name);
}
