#pragma once

#include <QString>

/// The text of a search for properties, "width", "width>=120" or "text:room", taken apart.
class CPropertyTest
{
public:
    explicit CPropertyTest(const QString &text);

    const QString &key() const { return m_key; } ///< a part of the names that are meant
    bool hasValue() const { return m_test != ETest::None; }
    bool isPassedBy(const QString &value) const;
    /// The same where a value has two texts; `key` may be empty.
    bool isPassedBy(const QString &value, const QString &key) const;

private:
    enum class ETest { None, Contains, Equal, Unequal, Less, LessOrEqual, Greater, GreaterOrEqual };

    QString m_key;
    ETest m_test = ETest::None;
    QString m_value;
};

/// Whether two texts are the same number, or the same text but for the case.
bool isSameValue(const QString &left, const QString &right);
