#include "CScreenModel.h"

#include "CProjectModel.h"
#include "IPropertyChangeObserver.h"
#include "ItemXml.h"
#include "PropertyKey.h"

namespace {
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
      m_workingDirectory(PropertyKey::WorkingDirectory, PropertyType::String),
      m_fonts(PropertyKey::Fonts, PropertyType::String),
      m_guidesAttribute(PropertyKey::Guides, PropertyType::String)
{
    m_workingDirectory.setInternal(true);
    m_fonts.setInternal(true);
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

const QStringList &CScreenModel::builtInKeys()
{
    static const QStringList keys = {PropertyKey::Name, PropertyKey::Color,
                                     PropertyKey::ScreenBitmapTimestamp};
    return keys;
}

void CScreenModel::setGuides(const ScreenGuideList &guides)
{
    m_guides = ScreenGuides::bounded(guides);
    m_guidesAttribute.setValueFromText(ScreenGuides::text(m_guides));
    if (observer())
        observer()->onGuidesChanged(this);
}

void CScreenModel::loadGuides(const QString &text)
{
    m_guides = ScreenGuides::fromText(text);
    m_guidesAttribute.setValueFromText(text);
}

/// What the project gives to all of its screens, with its text of today.
CWidgetProperty *CScreenModel::given(const QString &key)
{
    const CProjectModel *owner = project();
    if (key == PropertyKey::WorkingDirectory) {
        m_workingDirectory.setValue(owner ? owner->workingDirectory() : QString());
        return &m_workingDirectory;
    }
    if (key == PropertyKey::Fonts) {
        m_fonts.setValue(owner ? ProjectFonts::rendererText(owner->fonts()) : QString());
        return &m_fonts;
    }
    return nullptr;
}

bool CScreenModel::hasFonts() const
{
    const CProjectModel *owner = project();
    return owner && !owner->fonts().isEmpty();
}

/// Behind those that the screen has itself.
QStringList CScreenModel::givenKeys() const
{
    QStringList keys;
    if (!hasProperty(PropertyKey::WorkingDirectory))
        keys.append(PropertyKey::WorkingDirectory);
    if (!hasProperty(PropertyKey::Fonts) && hasFonts())
        keys.append(PropertyKey::Fonts);
    return keys;
}

int CScreenModel::propertyCount()
{
    return CItemModel::propertyCount() + givenKeys().size();
}

IModelProperty *CScreenModel::property(int index)
{
    const int own = CItemModel::propertyCount();
    if (index >= own)
        return given(givenKeys().at(index - own));
    IModelProperty *property = CItemModel::property(index);
    const QString key = QString::fromUtf8(property->name());
    if (key == PropertyKey::Color) {
        m_color.setValueFromText(propertyText(PropertyKey::Color));
        return &m_color;
    }
    // A document's own attribute of such a name is kept, but the renderer gets the project's.
    IModelProperty *hiding = given(key);
    return hiding ? hiding : property;
}

CItemModel *CScreenModel::cloneEmpty() const
{
    auto *copy = new CScreenModel(name(), library(), observer());
    copy->m_guides = m_guides;
    copy->m_guidesAttribute = m_guidesAttribute;
    return copy;
}

bool CScreenModel::isBuiltIn(const QString &name) const
{
    return builtInKeys().contains(name);
}
