#include "CanonicalValue.h"

#include "CWidgetProperty.h"

#include <algorithm>

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

/// As numbers are mostly written; such a text needs no reading.
bool isPlainNumber(const QByteArray &text)
{
    constexpr int SurelyShort = 9;
    const int first = text.startsWith('-') ? 1 : 0;
    const int digits = text.size() - first;
    if (digits < 1 || digits > SurelyShort || (text.at(first) == '0' && text.size() > 1))
        return false;
    return std::all_of(text.begin() + first, text.end(),
                       [](char each) { return each >= '0' && each <= '9'; });
}

} // namespace

QVariant canonicalValue(const CWidgetProperty &property)
{
    const PropertyType type = property.propertyType();
    if (type == PropertyType::Enum)
        return canonicalEntry(property.text(), property.enumerationEntries());
    if (type != PropertyType::Int && type != PropertyType::Float)
        return {};
    if (type == PropertyType::Int && isPlainNumber(property.textUtf8()))
        return {};
    const QString text = property.text();
    CWidgetProperty read = property; // reads and prints as every property of the type does
    read.setValueFromText(text);
    return read.text() == text ? QVariant() : read.value();
}
