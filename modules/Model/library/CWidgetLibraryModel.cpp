#include "CWidgetLibraryModel.h"

#include "LibraryXml.h"
#include "PlatformFilter.h"
#include "PropertyKey.h"

#include <QDomDocument>

namespace {
QVariant limitOf(const QDomElement &element, const QString &attribute, quint32 chipCode)
{
    const QString text = PlatformFilter::resolve(element.attribute(attribute), chipCode);
    return text.isEmpty() ? QVariant() : QVariant(text.toInt());
}

bool flagOf(const QDomElement &element, const QString &attribute, quint32 chipCode)
{
    return PlatformFilter::resolve(element.attribute(attribute), chipCode) == QLatin1String("true");
}

CWidgetProperty readProperty(const QDomElement &element, quint32 chipCode)
{
    const QString type = element.attribute(QStringLiteral("type"));
    CWidgetProperty property(element.attribute(QStringLiteral("name")), propertyTypeOfName(type));
    property.setValueFromText(element.attribute(QStringLiteral("value")));
    property.setMinimum(limitOf(element, QStringLiteral("min"), chipCode));
    property.setMaximum(limitOf(element, QStringLiteral("max"), chipCode));
    const QString step = element.attribute(QStringLiteral("singlestep"));
    if (!step.isEmpty())
        property.setSingleStep(step.toDouble());
    property.setHidden(flagOf(element, QStringLiteral("hidden"), chipCode));
    property.setReadOnly(flagOf(element, QStringLiteral("readonly"), chipCode));
    property.setInternal(flagOf(element, QStringLiteral("internal"), chipCode));
    property.setMultiLine(flagOf(element, QStringLiteral("multiline"), chipCode));
    if (property.propertyType() == PropertyType::Enum)
        property.setEnumerationEntries(PlatformFilter::enumerationEntries(type, chipCode));
    return property;
}

/// A text that is shown in one line, however the document has it.
QString shortText(const QString &text)
{
    constexpr int most = 60;
    return text.simplified().left(most);
}

/// An editor that does not go with the property's type is passed over.
SPropertyLook::EEditor editorOf(const QDomElement &element, PropertyType type)
{
    using EEditor = SPropertyLook::EEditor;
    const QString name = element.attribute(QStringLiteral("editor"));
    if (name == QLatin1String("font") && type == PropertyType::Int)
        return EEditor::Font;
    if (name == QLatin1String("sixteenths") && type == PropertyType::Int)
        return EEditor::Sixteenths;
    if (name == QLatin1String("symbol") && type == PropertyType::Enum)
        return EEditor::Symbol;
    return EEditor::Plain;
}
} // namespace

CWidgetLibraryModel::CWidgetLibraryModel(const QDomDocument &document, quint32 chipCode)
{
    m_captions = LibraryXml::captions(document);
    const QVector<QDomElement> groups = LibraryXml::groups(document);
    for (const QDomElement &group : groups) {
        const QVector<QDomElement> widgets = LibraryXml::widgets(group);
        for (const QDomElement &widget : widgets)
            m_kinds.insert(LibraryXml::typeOf(widget), readKind(widget, chipCode));
    }
    const QDomElement version = LibraryXml::root(document)
                                    .firstChildElement(QStringLiteral("miscinfo"))
                                    .firstChildElement(PropertyKey::NyxVersion);
    m_version = version.attribute(PropertyKey::Name, m_version);
}

CWidgetLibraryModel::Kind CWidgetLibraryModel::readKind(const QDomElement &widget,
                                                        quint32 chipCode) const
{
    Kind kind;
    QString section; // goes on until the next begins
    const QString propertyTag = QStringLiteral("property");
    QDomElement element =
        widget.firstChildElement(QStringLiteral("properties")).firstChildElement(propertyTag);
    for (; !element.isNull(); element = element.nextSiblingElement(propertyTag)) {
        const CWidgetProperty property = readProperty(element, chipCode);
        if (!kind.propertySet.contains(property.key())) {
            kind.propertyIndexes.insert(property.key(), kind.propertyKeys.size());
            kind.propertyKeys.append(property.key());
        }
        kind.propertySet.insert(property.key(), property);
        kind.properties.append(property);
        const QString caption = shortText(element.attribute(QStringLiteral("caption")));
        section = shortText(element.attribute(QStringLiteral("section"), section));
        kind.looks.insert(property.key(), {caption.isEmpty() ? captionOf(property.key()) : caption,
                                           section, editorOf(element, property.propertyType())});
    }
    kind.renderCommands = widget.firstChildElement(QStringLiteral("rendercmds")).text();
    kind.renderCommandsUtf8 = kind.renderCommands.toUtf8();
    kind.isTouched = flagOf(widget, QStringLiteral("touch"), chipCode);
    kind.tooltip = widget.firstChildElement(QStringLiteral("tooltip")).text();
    return kind;
}

const CWidgetLibraryModel::Kind *CWidgetLibraryModel::find(const QString &typeName) const
{
    const auto it = m_kinds.constFind(typeName);
    return it == m_kinds.constEnd() ? nullptr : &it.value();
}

QVector<CWidgetProperty> CWidgetLibraryModel::properties(const QString &typeName) const
{
    const Kind *kind = find(typeName);
    return kind ? kind->properties : QVector<CWidgetProperty>();
}

CWidgetLibraryModel::PropertySet CWidgetLibraryModel::propertySet(const QString &typeName) const
{
    const Kind *kind = find(typeName);
    return kind ? kind->propertySet : PropertySet();
}

QStringList CWidgetLibraryModel::propertyKeys(const QString &typeName) const
{
    const Kind *kind = find(typeName);
    return kind ? kind->propertyKeys : QStringList();
}

int CWidgetLibraryModel::propertyIndex(const QString &typeName, const QString &key) const
{
    const Kind *kind = find(typeName);
    return kind ? kind->propertyIndexes.value(key, -1) : -1;
}

/// "inner_gap" is "Inner gap" where the document has no better word.
QString CWidgetLibraryModel::captionOf(const QString &key) const
{
    QString caption = shortText(m_captions.value(key));
    if (!caption.isEmpty())
        return caption;
    caption = shortText(QString(key).replace(QLatin1Char('_'), QLatin1Char(' ')));
    return caption.isEmpty() ? key : caption.at(0).toUpper() + caption.mid(1);
}

SPropertyLook CWidgetLibraryModel::look(const QString &typeName, const QString &key) const
{
    const Kind *kind = find(typeName);
    if (kind && kind->looks.contains(key))
        return kind->looks.value(key);
    return {captionOf(key), QString(), SPropertyLook::EEditor::Plain};
}

QString CWidgetLibraryModel::renderCommands(const QString &typeName) const
{
    const Kind *kind = find(typeName);
    return kind ? kind->renderCommands : QString();
}

const char *CWidgetLibraryModel::renderCommandsUtf8(const QString &typeName) const
{
    const Kind *kind = find(typeName);
    return kind ? kind->renderCommandsUtf8.constData() : "";
}

QString CWidgetLibraryModel::tooltip(const QString &typeName) const
{
    const Kind *kind = find(typeName);
    return kind ? kind->tooltip : QString();
}

bool CWidgetLibraryModel::isTouched(const QString &typeName) const
{
    const Kind *kind = find(typeName);
    return kind && kind->isTouched;
}

QStringList CWidgetLibraryModel::typeNames() const
{
    QStringList names = m_kinds.keys();
    names.sort();
    return names;
}
