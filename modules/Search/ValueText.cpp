#include "ValueText.h"

#include "CWidgetProperty.h"
#include "PropertyWords.h"

#include <QColor>
#include <QCoreApplication>
#include <QTime>

#include <cmath>
#include <limits>

namespace {
using ValueText::SValue;

class CTexts
{
    Q_DECLARE_TR_FUNCTIONS(ValueText)
};

SValue refused(const QString &why)
{
    return {{}, why};
}

SValue number(const CWidgetProperty &property, const QString &text, int unit)
{
    QString bare = text;
    bool isNumber = false;
    const bool isWhole = property.propertyType() == PropertyType::Int;
    double value = isWhole && unit == 1
                       ? double(text.toInt(&isNumber))
                       : bare.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value))
        return refused(CTexts::tr("Not a number"));
    const auto shown = [unit](const QVariant &limit) {
        return unit == 1 ? limit.toString()
                         : PropertyWords::number(limit.toDouble() / double(unit));
    };
    value *= unit;
    if (property.minimum().isValid() && value < property.minimum().toDouble())
        return refused(CTexts::tr("Less than %1").arg(shown(property.minimum())));
    if (property.maximum().isValid() && value > property.maximum().toDouble())
        return refused(CTexts::tr("More than %1").arg(shown(property.maximum())));
    if (isWhole && std::abs(value) > std::numeric_limits<int>::max())
        return refused(CTexts::tr("Not a number"));
    return isWhole ? SValue{int(std::lround(value)), {}} : SValue{value, {}};
}

SValue entry(const QStringList &entries, const QString &text)
{
    for (const QString &each : entries) {
        if (each.compare(text, Qt::CaseInsensitive) == 0 ||
            PropertyWords::entry(each).compare(text, Qt::CaseInsensitive) == 0)
            return {each, {}};
    }
    return entries.isEmpty() ? SValue{text, {}} : refused(CTexts::tr("None of its choices"));
}

SValue truth(const QString &text)
{
    const auto isSo = [&text](const char *key, bool value) {
        return text.compare(QLatin1String(key), Qt::CaseInsensitive) == 0 ||
               text.compare(PropertyWords::truth(value), Qt::CaseInsensitive) == 0;
    };
    const bool isTrue = isSo("true", true);
    const bool isFalse = isSo("false", false);
    if (isTrue || isFalse || text == QLatin1String("1") || text == QLatin1String("0"))
        return {isTrue || text == QLatin1String("1"), {}};
    return refused(CTexts::tr("Neither true nor false"));
}
} // namespace

ValueText::SValue ValueText::read(const CWidgetProperty &property, const QString &text, int unit)
{
    const QString bare = text.trimmed();
    switch (property.propertyType()) {
    case PropertyType::Int:
    case PropertyType::Float:
        return number(property, bare, unit);
    case PropertyType::Bool:
        return truth(bare);
    case PropertyType::Rgb: {
        if (!QColor::isValidColor(bare))
            return refused(CTexts::tr("Not a colour"));
        const QColor colour(bare);
        return {colour.name(colour.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb), {}};
    }
    case PropertyType::Time: {
        const QTime time = QTime::fromString(bare, Qt::TextDate);
        return time.isValid() ? SValue{time, {}} : refused(CTexts::tr("Not a time"));
    }
    case PropertyType::Enum:
        return entry(property.enumerationEntries(), bare);
    default:
        break;
    }
    if (!property.isMultiLine() && text.contains(QLatin1Char('\n')))
        return refused(CTexts::tr("Has only one line"));
    return {text, {}};
}
