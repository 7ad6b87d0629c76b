#include "CWidgetProperty.h"

#include <QColor>
#include <QHash>
#include <QTime>

#include <cmath>

/// What the copies of a property have in common.
struct CWidgetProperty::Definition : QSharedData
{
    QString name;
    QByteArray nameUtf8; ///< in step with the name
    PropertyType type = PropertyType::String;
    QVariant minimum;
    QVariant maximum;
    QVariant singleStep;
    QStringList enumerationEntries;
    bool hidden = false;
    bool readOnly = false;
    bool internal = false;
    bool multiLine = false;
};

namespace {
/// Asked first because QColor warns about every name that it does not know.
QColor colorOfName(const QString &name)
{
    return QColor::isValidColor(name) ? QColor(name) : QColor();
}

QColor colorOf(const QVariant &value)
{
    return value.userType() == QMetaType::QColor ? value.value<QColor>()
                                                 : colorOfName(value.toString());
}

QByteArray textOf(const QColor &color)
{
    const auto form = color.alpha() >= 255 ? QColor::HexRgb : QColor::HexArgb;
    return color.name(form).toLatin1();
}

/// "nan" and "inf" read as numbers, but nothing could be drawn or compared with them.
double finiteOf(const QString &text)
{
    const double number = text.toDouble();
    return std::isfinite(number) ? number : 0.0;
}

/// UTF-8. Most values are plain ASCII, which has its place at once.
QByteArray utf8Of(const QString &text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char *target = bytes.data();
    ushort seen = 0;
    for (const QChar character : text) {
        seen |= character.unicode();
        *target++ = static_cast<char>(character.unicode());
    }
    return seen < 0x80 ? bytes : text.toUtf8();
}

QByteArray textOf(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QString:
        return utf8Of(value.toString());
    case QMetaType::Int:
        return QByteArray::number(value.toInt());
    case QMetaType::QTime: // the variant's own conversion adds milliseconds
        return value.toTime().toString(QStringLiteral("HH:mm:ss")).toLatin1();
    default:
        return value.toString().toUtf8();
    }
}
} // namespace

const QSharedDataPointer<CWidgetProperty::Definition> &CWidgetProperty::emptyDefinition()
{
    static const QSharedDataPointer<Definition> empty(new Definition);
    return empty;
}

CWidgetProperty::CWidgetProperty() : m_definition(emptyDefinition())
{
}

/// Thousands of items have the same attributes that no library knows, so their names are kept once.
QSharedDataPointer<CWidgetProperty::Definition>
CWidgetProperty::definitionOfText(const QString &name)
{
    constexpr int most = 4096; // names that a hostile document makes up are not kept for ever
    thread_local QHash<QString, QSharedDataPointer<Definition>>
        known; // items are read by any thread
    const auto found = known.constFind(name);
    if (found != known.constEnd())
        return *found;
    if (known.size() >= most)
        known.clear();
    QSharedDataPointer<Definition> made(new Definition);
    made->name = name;
    made->nameUtf8 = name.toUtf8();
    known.insert(name, made);
    return made;
}

CWidgetProperty::CWidgetProperty(const QString &name, PropertyType type)
    : m_definition(type == PropertyType::String ? definitionOfText(name)
                                                : QSharedDataPointer<Definition>(new Definition))
{
    if (type == PropertyType::String)
        return;
    setName(name);
    setType(type);
}

CWidgetProperty::CWidgetProperty(const CWidgetProperty &other) = default;
CWidgetProperty &CWidgetProperty::operator=(const CWidgetProperty &other) = default;
CWidgetProperty::~CWidgetProperty() = default;

const char *CWidgetProperty::name()
{
    return keyUtf8().constData();
}

const char *CWidgetProperty::storageTypeName()
{
    const PropertyType type = propertyType();
    return type == PropertyType::Int || type == PropertyType::Bool ? "int" : "string";
}

const char *CWidgetProperty::valueText()
{
    return m_valueText.constData();
}

int32_t CWidgetProperty::type()
{
    return static_cast<int32_t>(propertyType());
}

int32_t CWidgetProperty::valueAsInteger()
{
    return m_value.toInt();
}

const QString &CWidgetProperty::key() const
{
    return m_definition->name;
}

const QByteArray &CWidgetProperty::keyUtf8() const
{
    return m_definition->nameUtf8;
}

void CWidgetProperty::setName(const QString &name)
{
    m_definition->name = name;
    m_definition->nameUtf8 = name.toUtf8();
}

PropertyType CWidgetProperty::propertyType() const
{
    return m_definition->type;
}

void CWidgetProperty::setType(PropertyType type)
{
    m_definition->type = type;
}

void CWidgetProperty::setValue(const QVariant &value)
{
    switch (propertyType()) {
    case PropertyType::Bool:
        m_value = value == QVariant(QStringLiteral("true")) || value.toInt() != 0;
        m_valueText = m_value.toBool() ? "1" : "0";
        break;
    case PropertyType::Rgb:
        m_value = value;
        m_valueText = textOf(colorOf(value));
        break;
    default:
        m_value = value;
        m_valueText = textOf(value);
        break;
    }
}

bool CWidgetProperty::isValueOfText(const QString &text) const
{
    const bool isText = propertyType() == PropertyType::String ||
                        propertyType() == PropertyType::Enum || propertyType() == PropertyType::Rgb;
    return isText && m_value.userType() == QMetaType::QString &&
           *static_cast<const QString *>(m_value.constData()) == text;
}

void CWidgetProperty::setValueFromText(const QString &text)
{
    if (isValueOfText(text))
        return; // copies go on sharing it
    switch (propertyType()) {
    case PropertyType::Int:
        setValue(text.toInt());
        break;
    case PropertyType::Float:
        setValue(finiteOf(text));
        break;
    case PropertyType::Bool:
        setValue(text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ||
                 text.toInt() != 0);
        break;
    case PropertyType::Time:
        setValue(QTime::fromString(text, Qt::TextDate));
        break;
    default: // a colour keeps its text; only the canonical text is made from the colour
        setValue(text);
        break;
    }
}

const QVariant &CWidgetProperty::minimum() const
{
    return m_definition->minimum;
}

const QVariant &CWidgetProperty::maximum() const
{
    return m_definition->maximum;
}

const QVariant &CWidgetProperty::singleStep() const
{
    return m_definition->singleStep;
}

void CWidgetProperty::setMinimum(const QVariant &minimum)
{
    m_definition->minimum = minimum;
}

void CWidgetProperty::setMaximum(const QVariant &maximum)
{
    m_definition->maximum = maximum;
}

void CWidgetProperty::setSingleStep(const QVariant &step)
{
    m_definition->singleStep = step;
}

bool CWidgetProperty::isHidden() const
{
    return m_definition->hidden;
}

bool CWidgetProperty::isReadOnly() const
{
    return m_definition->readOnly;
}

bool CWidgetProperty::isInternal() const
{
    return m_definition->internal;
}

bool CWidgetProperty::isMultiLine() const
{
    return m_definition->multiLine;
}

void CWidgetProperty::setMultiLine(bool multiLine)
{
    m_definition->multiLine = multiLine;
}

void CWidgetProperty::setHidden(bool hidden)
{
    m_definition->hidden = hidden;
}

void CWidgetProperty::setReadOnly(bool readOnly)
{
    m_definition->readOnly = readOnly;
}

void CWidgetProperty::setInternal(bool internal)
{
    m_definition->internal = internal;
}

const QStringList &CWidgetProperty::enumerationEntries() const
{
    return m_definition->enumerationEntries;
}

void CWidgetProperty::takeDefinition(const CWidgetProperty &other)
{
    if (key() == other.key() && propertyType() == other.propertyType())
        m_definition = other.m_definition;
}

void CWidgetProperty::setEnumerationEntries(const QStringList &entries)
{
    m_definition->enumerationEntries = entries;
}
