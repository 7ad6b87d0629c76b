#include "CanonicalValue.h"

#include "CWidgetProperty.h"

namespace {

QVariant canonicalEntry(const QString &text, const QStringList &entries)
{
    if (entries.isEmpty() || entries.contains(text))
        return {};
    for (const QString &entry : entries) {
        if (entry.compare(text, Qt::CaseInsensitive) == 0)
            return entry;
    }
    bool isIndex = false;
    const int index = text.toInt(&isIndex);
    return isIndex && index >= 0 && index < entries.size() ? entries.at(index) : QVariant();
}

} // namespace

QVariant canonicalValue(const CWidgetProperty &property)
{
    const QString text = property.text();
    if (property.propertyType() == PropertyType::Enum)
        return canonicalEntry(text, property.enumerationEntries());
    if (property.propertyType() != PropertyType::Int &&
        property.propertyType() != PropertyType::Float)
        return {};
    CWidgetProperty read = property; // reads and prints as every property of the type does
    read.setValueFromText(text);
    return read.text() == text ? QVariant() : read.value();
}
