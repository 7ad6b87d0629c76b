#pragma once

#include "IModelProperty.h"
#include "PropertyType.h"

#include <QByteArray>
#include <QSharedDataPointer>
#include <QStringList>
#include <QVariant>

/// One named, typed property of an item: its value, the value's canonical text, and what the
/// editor needs to know (limits, flags, entries of an enumeration).
/// Errors:  setting a value cannot fail; text that does not read gives 0, false, an invalid colour
///          or time. Limits steer the editor only, values are never cut to them.
/// Copies:  cheap. Everything but the value is shared until one of the copies changes it, so the
///          widgets of a kind share the library's definition.
class CWidgetProperty final : public IModelProperty
{
public:
    /// A nameless "string" property without a value.
    CWidgetProperty();
    CWidgetProperty(const QString &name, PropertyType type);
    CWidgetProperty(const CWidgetProperty &other);
    CWidgetProperty &operator=(const CWidgetProperty &other);
    ~CWidgetProperty() override;

    // IModelProperty: what the emulator library reads. Pointers stay valid until the next change.
    const char *name() override;
    const char *storageTypeName() override;
    const char *valueText() override;
    int32_t type() override;
    int32_t valueAsInteger() override;

    const QString &key() const; ///< the name
    const QByteArray &keyUtf8() const;
    void setName(const QString &name);

    PropertyType propertyType() const;
    void setType(PropertyType type);

    const QVariant &value() const { return m_value; }
    /// The canonical text, also behind a zero character.
    QString text() const { return QString::fromUtf8(m_valueText.constData(), m_valueText.size()); }
    const QByteArray &textUtf8() const { return m_valueText; }

    /// Takes the value as it is, except that a "bool" becomes true or false.
    void setValue(const QVariant &value);
    /// Reads the value as documents and libraries write it.
    void setValueFromText(const QString &text);

    // For the editor. The limits are integers and the step a floating number, or empty.
    const QVariant &minimum() const;
    const QVariant &maximum() const;
    const QVariant &singleStep() const;
    void setMinimum(const QVariant &minimum);
    void setMaximum(const QVariant &maximum);
    void setSingleStep(const QVariant &step);
    bool isHidden() const;   ///< not shown
    bool isReadOnly() const; ///< shown, not edited
    bool
    isInternal() const; ///< of the program, not of the user; not saved with widgets and screens
    bool isMultiLine() const; ///< a text that may have line ends
    void setHidden(bool hidden);
    void setReadOnly(bool readOnly);
    void setInternal(bool internal);
    void setMultiLine(bool multiLine);
    const QStringList &enumerationEntries() const;
    /// Limits, flags and entries of another property of the same name and type; of any other, none.
    void takeDefinition(const CWidgetProperty &other);
    void setEnumerationEntries(const QStringList &entries);

private:
    struct Definition;
    static const QSharedDataPointer<Definition> &emptyDefinition();
    static QSharedDataPointer<Definition> definitionOfText(const QString &name);
    bool isValueOfText(const QString &text) const;

    QSharedDataPointer<Definition> m_definition;
    QVariant m_value;
    QByteArray m_valueText; ///< UTF-8, in step with the value
};

Q_DECLARE_TYPEINFO(CWidgetProperty, Q_MOVABLE_TYPE);
