#include "ShownProperties.h"

#include "CItemDocument.h"
#include "CItemModel.h"
#include "CWidgetLibraryModel.h"
#include "PropertyKey.h"

namespace {
using Properties = QVector<CWidgetProperty>;

Properties ofKeys(const CItemModel &item, const QStringList &keys)
{
    Properties shown;
    for (const QString &key : keys) {
        const auto property = item.properties().constFind(key);
        if (property != item.properties().constEnd() && !property->isHidden())
            shown.append(*property);
    }
    return shown;
}

Properties ofScreen(const CItemModel &screen)
{
    Properties shown = ofKeys(screen, {PropertyKey::Name});
    CWidgetProperty colour(PropertyKey::Color, PropertyType::Rgb); // a text where it was read
    colour.setValueFromText(screen.propertyText(PropertyKey::Color));
    shown.append(colour);
    return shown;
}

/// A widget of a kind that the library lacks shows what its document gave it.
Properties ofWidget(const CItemModel &widget)
{
    const CWidgetLibraryModel *library = widget.library();
    if (library && library->contains(widget.itemTypeName()))
        return ofKeys(widget, library->propertyKeys(widget.itemTypeName()));
    Properties shown;
    for (const CWidgetProperty *each : CItemDocument::of(widget).saved(widget))
        shown.append(*each);
    return shown;
}
} // namespace

QVector<CWidgetProperty> ShownProperties::of(const CItemModel &item)
{
    switch (item.kind()) {
    case CItemModel::Kind::Screen:
        return ofScreen(item);
    case CItemModel::Kind::Group:
        return ofKeys(item, {PropertyKey::Name, PropertyKey::X, PropertyKey::Y});
    case CItemModel::Kind::Widget:
        break;
    }
    return ofWidget(item);
}
