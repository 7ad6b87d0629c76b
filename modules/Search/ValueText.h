#pragma once

#include <QString>
#include <QVariant>

class CItemModel;
class CProjectModel;
class CWidgetProperty;

/// Texts as values of properties.
namespace ValueText {
struct SValue
{
    QVariant value; ///< invalid when there is a refusal
    QString refusal;
};
/// The text as a value of the property, within its limits, or why it cannot be one. Choices may be
/// given as users know them, and numbers in units of so much of the property.
SValue read(const CWidgetProperty &property, const QString &text, int unit = 1);
} // namespace ValueText
