#include "CScreenModel.h"

#include "CProjectModel.h"
#include "ItemXml.h"
#include "PropertyKey.h"

namespace {
const QStringList &builtInKeys()
{
    static const QStringList keys = {PropertyKey::Name, PropertyKey::Color,
                                     PropertyKey::ScreenBitmapTimestamp};
    return keys;
}

CWidgetProperty makeProperty(const QString &name, PropertyType type, const QString &text)
{
    CWidgetProperty property(name, type);
    property.setValueFromText(text);
    return property;
}
} // namespace

CScreenModel::CScreenModel(CProjectModel *project)
    : CScreenModel(project->unusedScreenName(), project->library(), project)
{
}

CScreenModel::CScreenModel(const QString &name, const CWidgetLibraryModel *library,
                           IPropertyChangeObserver *observer)
    : CItemModel(Kind::Screen, TypeName::Screen, library, observer),
      m_color(PropertyKey::Color, PropertyType::Rgb),
      m_workingDirectory(PropertyKey::WorkingDirectory, PropertyType::String)
{
    m_workingDirectory.setInternal(true);
    addProperty(makeProperty(PropertyKey::Name, PropertyType::String, name));
    addProperty(makeProperty(PropertyKey::Color, PropertyType::Rgb, QStringLiteral("#000000")));
    addProperty(makeProperty(PropertyKey::ScreenBitmapTimestamp, PropertyType::String, QString()));
}

void CScreenModel::loadFromElement(const QDomElement &element)
{
    ItemXml::read(*this, element);
}

void CScreenModel::saveToElement(QDomElement &element) const
{
    ItemXml::write(*this, element);
}

void CScreenModel::takeAttributes(const ItemAttributes &attributes)
{
    for (const ItemAttribute &attribute : attributes)
        addProperty(makeProperty(attribute.name, PropertyType::String, attribute.text));
}

QVector<const CWidgetProperty *> CScreenModel::savedProperties() const
{
    QVector<const CWidgetProperty *> saved;
    const QVector<const CWidgetProperty *> all = orderedProperties(builtInKeys());
    for (const CWidgetProperty *each : all) {
        if (!each->key().isEmpty() && !each->isInternal())
            saved.append(each);
    }
    return saved;
}

int CScreenModel::propertyCount()
{
    return CItemModel::propertyCount() + (hasProperty(PropertyKey::WorkingDirectory) ? 0 : 1);
}

IModelProperty *CScreenModel::property(int index)
{
    if (index < CItemModel::propertyCount()) {
        IModelProperty *property = CItemModel::property(index);
        if (PropertyKey::Color == QLatin1String(property->name())) {
            m_color.setValueFromText(propertyText(PropertyKey::Color));
            return &m_color;
        }
        // A document's own attribute of this name is kept, but the renderer gets the project's.
        if (PropertyKey::WorkingDirectory != QLatin1String(property->name()))
            return property;
    }
    const CProjectModel *owner = project();
    m_workingDirectory.setValue(owner ? owner->workingDirectory() : QString());
    return &m_workingDirectory;
}

CItemModel *CScreenModel::cloneEmpty() const
{
    return new CScreenModel(name(), library(), observer());
}

bool CScreenModel::isBuiltIn(const QString &name) const
{
    return builtInKeys().contains(name);
}
