#include "CItemFacets.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "CWidgetLibraryModel.h"
#include "PropertyKey.h"
#include "PropertyWords.h"

#include <QColor>
#include <QCoreApplication>

#include <algorithm>

namespace {
using ESort = SFacet::ESort;

bool isKnown(const CItemModel &item)
{
    return item.kind() == CItemModel::Kind::Widget && item.library() &&
           item.library()->contains(item.itemTypeName());
}

ESort sortOf(const QString &key, const CWidgetProperty &property)
{
    if (key == PropertyKey::Name)
        return ESort::Name;
    if (CItemFacets::isImageKey(key))
        return ESort::Image;
    switch (property.propertyType()) {
    case PropertyType::Int:
        return key == PropertyKey::Font || key.endsWith(QLatin1String("_font")) ? ESort::Font
                                                                                : ESort::Number;
    case PropertyType::Float:
        return ESort::Number;
    case PropertyType::Bool:
        return ESort::Switch;
    case PropertyType::Rgb:
        return ESort::Colour;
    case PropertyType::Time:
        return ESort::Time;
    case PropertyType::Enum:
        return ESort::Choice;
    default:
        return ESort::Text;
    }
}
} // namespace

CItemFacets::CItemFacets(const CProjectModel &project)
{
    for (const SProjectFont &each : project.fonts())
        m_fonts.insert(each.handle, each.name);
}

bool CItemFacets::isImageKey(const QString &key)
{
    return key == PropertyKey::BaseName || key == PropertyKey::FileName;
}

SFacet CItemFacets::facetOf(const CItemModel &item, const CWidgetProperty &property)
{
    const QString key = property.key();
    return {key, sortOf(key, property), PropertyWords::caption(item, key),
            PropertyWords::unit(item, key)};
}

QVector<SFacet> CItemFacets::make(const CItemModel &item) const
{
    QVector<SFacet> facets;
    if (item.kind() == CItemModel::Kind::Screen) // what its colour was read as is a text
        return {
            {PropertyKey::Name, ESort::Name, PropertyWords::caption(item, PropertyKey::Name), 1},
            {PropertyKey::Color, ESort::Colour, PropertyWords::caption(item, PropertyKey::Color),
             1},
            {{}, ESort::Kind, {}, 1}};
    QStringList keys = isKnown(item) ? item.library()->propertyKeys(item.itemTypeName())
                                     : QStringList(item.properties().keys());
    if (!isKnown(item))
        keys.sort(); // the order in a table of properties is none
    for (const QString &key : qAsConst(keys)) {
        const auto property = item.properties().constFind(key);
        if (property == item.properties().constEnd() || property->isHidden() ||
            property->isInternal())
            continue;
        // The file that an image was made of may be elsewhere; its name in the project says more.
        if (key != PropertyKey::FileName || !item.hasProperty(PropertyKey::BaseName))
            facets.append(facetOf(item, *property));
    }
    facets.append({{}, ESort::Kind, {}, 1});
    std::stable_sort(facets.begin(), facets.end(), [](const SFacet &left, const SFacet &right) {
        return left.sort < right.sort;
    });
    return facets;
}

QVector<SFacet> CItemFacets::of(const CItemModel &item)
{
    if (!isKnown(item))
        return make(item);
    const auto known = m_ofKind.constFind(item.itemTypeName());
    return known != m_ofKind.constEnd() ? *known
                                        : *m_ofKind.insert(item.itemTypeName(), make(item));
}

QString CItemFacets::kindName(const CItemModel &item)
{
    switch (item.kind()) {
    case CItemModel::Kind::Screen:
        return QCoreApplication::translate("CItemFacets", "Page");
    case CItemModel::Kind::Group:
        return QCoreApplication::translate("CItemFacets", "Group");
    case CItemModel::Kind::Widget:
        break;
    }
    if (!isKnown(item))
        return item.itemTypeName();
    const QString name =
        item.library()->propertySet(item.itemTypeName()).value(PropertyKey::Name).text();
    return name.isEmpty() ? item.itemTypeName() : PropertyWords::kind(name);
}

QString CItemFacets::imageName(const CItemModel &item)
{
    const QString file = item.propertyText(PropertyKey::FileName).section(QLatin1Char('/'), -1);
    return file.isEmpty() ? item.propertyText(PropertyKey::BaseName) : file;
}

QString CItemFacets::fontText(int handle) const
{
    const QString name = m_fonts.value(handle);
    return name.isEmpty() ? QString::number(handle)
                          : QString::number(handle) + QLatin1Char(' ') + name;
}

QString CItemFacets::entry(const QString &name) const
{
    const auto known = m_entries.constFind(name);
    return known != m_entries.constEnd() ? *known
                                         : *m_entries.insert(name, PropertyWords::entry(name));
}

QString CItemFacets::key(const CItemModel &item, const SFacet &facet)
{
    if (facet.sort == ESort::Choice)
        return item.propertyText(facet.key);
    if (facet.sort != ESort::Switch)
        return {};
    return item.propertyText(facet.key) == QLatin1String("1") ? QStringLiteral("true")
                                                              : QStringLiteral("false");
}

QString CItemFacets::text(const CItemModel &item, const SFacet &facet) const
{
    switch (facet.sort) {
    case ESort::Kind:
        return kindName(item);
    case ESort::Name:
        return item.name();
    case ESort::Image:
        return imageName(item);
    case ESort::Font:
        return fontText(item.propertyText(facet.key).toInt());
    case ESort::Switch:
        return PropertyWords::truth(item.propertyText(facet.key) == QLatin1String("1"));
    case ESort::Choice:
        return entry(item.propertyText(facet.key));
    case ESort::Number:
        return facet.unit == 1 ? item.propertyText(facet.key)
                               : PropertyWords::number(item.propertyText(facet.key).toInt() /
                                                       double(facet.unit));
    case ESort::Colour: {
        const QString text = item.propertyText(facet.key);
        if (item.kind() == CItemModel::Kind::Widget || !QColor::isValidColor(text))
            return text;
        const QColor colour(text); // of a screen, as it was read
        return colour.name(colour.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb);
    }
    default:
        return item.propertyText(facet.key);
    }
}
