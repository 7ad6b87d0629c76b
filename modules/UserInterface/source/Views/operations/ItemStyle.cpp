#include "ItemStyle.h"

#include "CCommandChangeItemProperty.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "ItemTree.h"

#include <QCoreApplication>
#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <memory>

namespace {
/// What is neither a colour nor a font; what the value of an option means is up to its kind, so
/// one that is not named here is no style.
bool isLook(const QString &key)
{
    static const QSet<QString> keys = {
        QStringLiteral("align"),       QStringLiteral("area"),         QStringLiteral("border"),
        QStringLiteral("corner"),      QStringLiteral("direction"),    QStringLiteral("ends"),
        QStringLiteral("figures"),     QStringLiteral("filter"),       QStringLiteral("gap"),
        QStringLiteral("glow"),        QStringLiteral("grid"),         QStringLiteral("head"),
        QStringLiteral("line_height"), QStringLiteral("mark_last"),    QStringLiteral("marks"),
        QStringLiteral("padding"),     QStringLiteral("rounded"),      QStringLiteral("row_height"),
        QStringLiteral("show_off"),    QStringLiteral("strength"),     QStringLiteral("striped"),
        QStringLiteral("style"),       QStringLiteral("line_spacing"), QStringLiteral("thickness"),
        QStringLiteral("valign")};
    return keys.contains(key);
}

/// The value that the property would get; invalid when it is none for it.
QVariant valueFor(const CWidgetProperty &property, const CWidgetProperty &given)
{
    if (property.propertyType() != given.propertyType())
        return {};
    if (property.propertyType() == PropertyType::Enum)
        return property.enumerationEntries().contains(given.text()) ? given.value() : QVariant();
    if (property.propertyType() != PropertyType::Int)
        return given.value();
    int value = given.value().toInt();
    if (property.minimum().isValid())
        value = std::max(value, property.minimum().toInt());
    if (property.maximum().isValid())
        value = std::min(value, property.maximum().toInt());
    return value;
}
} // namespace

bool ItemStyle::isPartOf(const CWidgetProperty &property)
{
    if (property.isHidden() || property.isReadOnly() || property.isInternal())
        return false;
    const QString &key = property.key();
    return property.propertyType() == PropertyType::Rgb || key == QLatin1String("font") ||
           key.endsWith(QLatin1String("_font")) || isLook(key);
}

ItemStyle::Style ItemStyle::of(const Items &items)
{
    Style style;
    for (const CItemModel *item : items) {
        forEachItem(*item, [&style](const CItemModel &each) {
            for (const CWidgetProperty &property : each.properties()) {
                if (isPartOf(property) && !style.contains(property.key()))
                    style.insert(property.key(), property);
            }
        });
    }
    return style;
}

bool ItemStyle::apply(const Style &style, const Items &items)
{
    auto step = std::make_unique<QUndoCommand>(
        QCoreApplication::translate("CSelectionCommands", "Paste Style"));
    QStringList keys = style.keys();
    keys.sort(); // the same step in every run
    for (CItemModel *item : items) {
        forEachItem(*item, [&](CItemModel &each) {
            for (const QString &key : qAsConst(keys)) {
                const auto own = each.properties().constFind(key);
                if (own == each.properties().cend() || !isPartOf(*own) || each.isUnderLock())
                    continue;
                const QVariant value = valueFor(*own, style[key]);
                CWidgetProperty wanted = *own;
                wanted.setValue(value);
                if (value.isValid() && wanted.text() != own->text())
                    new CCommandChangeItemProperty(&each, key, value, own->value(), step.get());
            }
        });
    }
    if (step->childCount() == 0)
        return false;
    items.constFirst()->project()->undoStack()->push(step.release());
    return true;
}
