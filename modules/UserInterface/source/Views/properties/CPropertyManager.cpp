#include "CPropertyManager.h"

#include "CThemeIcons.h"
#include "CWidgetProperty.h"
#include "PropertyWords.h"

#include <QApplication>
#include <QColor>
#include <QPainter>
#include <QPixmap>
#include <QTime>

#include <algorithm>
#include <cmath>

namespace {

const QString minimumAttribute = QStringLiteral("minimum");
const QString maximumAttribute = QStringLiteral("maximum");
const QString stepAttribute = QStringLiteral("singleStep");
const QString readOnlyAttribute = QStringLiteral("readOnly");
const QString decimalsAttribute = QStringLiteral("decimals");
const QString entriesAttribute = QStringLiteral("enumNames");

/// What the property browser looks up by itself; named here for the translations.
[[maybe_unused]] const char *const browserTexts[] = {
    QT_TRANSLATE_NOOP("QtColorPropertyManager", "Red"),
    QT_TRANSLATE_NOOP("QtColorPropertyManager", "Green"),
    QT_TRANSLATE_NOOP("QtColorPropertyManager", "Blue"),
    QT_TRANSLATE_NOOP("QtColorPropertyManager", "Alpha"),
    QT_TRANSLATE_NOOP("QtBoolEdit", "True"),
    QT_TRANSLATE_NOOP("QtBoolEdit", "False")};

int editorType(PropertyType type)
{
    switch (type) {
    case PropertyType::Int:
        return QVariant::Int;
    case PropertyType::Float:
        return QVariant::Double;
    case PropertyType::Bool:
        return QVariant::Bool;
    case PropertyType::Rgb:
        return QVariant::Color;
    case PropertyType::Time:
        return QVariant::Time;
    case PropertyType::Enum:
        return QtVariantPropertyManager::enumTypeId();
    default:
        return QVariant::String;
    }
}

bool isNumber(int editorType)
{
    return editorType == QVariant::Int || editorType == QVariant::Double;
}

QColor colourOf(const QVariant &value)
{
    return value.type() == QVariant::Color ? value.value<QColor>() : QColor(value.toString());
}

/// A check box as a picture, with an outline that is seen on both themes' grounds.
QIcon checkIcon(bool checked)
{
    const qreal ratio = qApp->devicePixelRatio();
    constexpr int side = 16;
    QPixmap picture(QSize(side, side) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor text = QApplication::palette().color(QPalette::Text);
    QColor outline = text;
    outline.setAlpha(150);
    painter.setPen(outline);
    painter.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 3, 3);
    if (checked) {
        painter.setPen(QPen(text, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF check[] = {{4.5, 8.5}, {7, 11}, {11.5, 5.5}};
        painter.drawPolyline(check, 3);
    }
    return picture;
}

} // namespace

CPropertyManager::CPropertyManager(QObject *parent) : QtVariantPropertyManager(parent)
{
}

QString CPropertyManager::colourText(const QColor &colour)
{
    return colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
}

double CPropertyManager::rounded(double number)
{
    const double unit = std::pow(10.0, Decimals);
    constexpr double noise = 1e-12; // 1.00005 is a little less than what was typed
    const double rounded = std::round(number * unit * (1 + noise)) / unit;
    return std::isfinite(rounded) ? rounded : number;
}

QString CPropertyManager::numberText(double number)
{
    return QString::number(rounded(number), 'g', 15);
}

QtVariantProperty *CPropertyManager::addRow(const CWidgetProperty &property,
                                            SPropertyLook::EEditor editor)
{
    const int type = editorType(property.propertyType());
    QtVariantProperty *row = addProperty(type, property.key());
    if (editor != SPropertyLook::EEditor::Plain)
        m_editors.insert(row, editor);
    if (type == QVariant::Double)
        row->setAttribute(decimalsAttribute, Decimals);
    if (type == enumTypeId())
        row->setAttribute(entriesAttribute, property.enumerationEntries());
    if (isNumber(type)) {
        if (property.minimum().isValid())
            row->setAttribute(minimumAttribute, property.minimum().toInt());
        if (property.maximum().isValid())
            row->setAttribute(maximumAttribute, property.maximum().toInt());
        if (property.singleStep().isValid())
            row->setAttribute(stepAttribute, property.singleStep().toDouble());
    }
    if (property.isReadOnly()) {
        if (isNumber(type) || type == QVariant::String)
            row->setAttribute(readOnlyAttribute, true);
        else
            row->setEnabled(false);
    }
    row->setToolTip(
        rangeText(property, editor == SPropertyLook::EEditor::Sixteenths ? Sixteenths : 1));
    showValue(row, property.value());
    return row;
}

QtVariantProperty *CPropertyManager::addText(const QString &name, const QString &text)
{
    QtVariantProperty *row = addProperty(QVariant::String, name);
    row->setAttribute(readOnlyAttribute, true);
    row->setValue(text);
    return row;
}

void CPropertyManager::showValue(QtVariantProperty *row, const QVariant &value)
{
    const int type = row->propertyType();
    if (type == enumTypeId()) {
        showEntry(row, value.toString());
    } else if (type == QVariant::Color) {
        row->setValue(colourOf(value));
    } else if (isNumber(type)) {
        const double number = value.toDouble();
        if (number < row->attributeValue(minimumAttribute).toDouble())
            row->setAttribute(minimumAttribute, number);
        if (number > row->attributeValue(maximumAttribute).toDouble())
            row->setAttribute(maximumAttribute, number);
        row->setValue(value);
    } else {
        row->setValue(value);
    }
}

/// An entry that the platform's chip does not have is offered too, as long as it is the value.
void CPropertyManager::showEntry(QtVariantProperty *row, const QString &entry)
{
    QStringList entries = row->attributeValue(entriesAttribute).toStringList();
    if (!entries.contains(entry)) {
        entries.append(entry);
        row->setAttribute(entriesAttribute, entries);
    }
    row->setValue(entries.indexOf(entry));
}

void CPropertyManager::uninitializeProperty(QtProperty *property)
{
    m_editors.remove(property);
    QtVariantPropertyManager::uninitializeProperty(property);
}

QVariant CPropertyManager::modelValue(const QtProperty *row) const
{
    const QVariant shown = value(row);
    if (propertyType(row) != enumTypeId())
        return shown;
    return attributeValue(row, entriesAttribute).toStringList().value(shown.toInt());
}

QString CPropertyManager::valueText(const QtProperty *property) const
{
    switch (propertyType(property)) {
    case QVariant::Color: {
        const QColor colour = value(property).value<QColor>();
        return colour.isValid() ? colourText(colour) : tr("none");
    }
    case QVariant::Double:
        return numberText(value(property).toDouble());
    case QVariant::Int:
        if (editorOf(property) == SPropertyLook::EEditor::Sixteenths)
            return numberText(value(property).toInt() / double{Sixteenths});
        if (editorOf(property) == SPropertyLook::EEditor::Font && m_fontText)
            return m_fontText(value(property).toInt());
        return QString::number(value(property).toInt());
    case QVariant::String: // in one line
        return value(property).toString().replace(QLatin1Char('\n'), QStringLiteral(" \u21b5 "));
    case QVariant::Bool: // as its editor says it, also in another language
        return PropertyWords::truth(value(property).toBool());
    case QVariant::Time:
        return value(property).toTime().toString(QStringLiteral("HH:mm:ss"));
    default:
        if (propertyType(property) == enumTypeId())
            return PropertyWords::entry(modelValue(property).toString());
        return QtVariantPropertyManager::valueText(property);
    }
}

QIcon CPropertyManager::valueIcon(const QtProperty *property) const
{
    if (propertyType(property) == QVariant::Bool)
        return checkIcon(value(property).toBool());
    const QIcon icon = QtVariantPropertyManager::valueIcon(property);
    const QList<QSize> sizes = icon.availableSizes(); // none for most types
    return sizes.isEmpty() ? icon : CThemeIcons::untinted(icon.pixmap(sizes.first()));
}

/// `unit`: what makes one of what is shown.
QString CPropertyManager::rangeText(const CWidgetProperty &property, int unit)
{
    const bool hasMinimum = property.minimum().isValid();
    const bool hasMaximum = property.maximum().isValid();
    if (!isNumber(editorType(property.propertyType())) || !(hasMinimum || hasMaximum))
        return {};
    const QString least = numberText(property.minimum().toInt() / double(unit));
    const QString most = numberText(property.maximum().toInt() / double(unit));
    if (!hasMaximum)
        return tr("%1 or more").arg(least);
    if (!hasMinimum)
        return tr("at most %1").arg(most);
    return tr("%1 to %2").arg(least, most);
}
