#pragma once

#include <QHash>
#include <QStringList>

namespace kivtools {

/// The arguments of a tool: options with a value ("-i FILE") and switches ("--no-dither").
/// The word behind a value option is its value whatever it looks like, so that a file may be called
/// "-f" or "--help".
class CToolArguments
{
public:
    CToolArguments(QStringList valueOptions, QStringList switches);

    /// Reads the words behind the program name. False on an unknown or repeated option, or one that
    /// lacks its value; errorText() then says which.
    bool parse(const QStringList &words);
    const QString &errorText() const { return m_errorText; }

    bool isSet(const QString &option) const { return m_values.contains(option); }
    QString value(const QString &option) const { return m_values.value(option); }

private:
    bool fail(const QString &text);

    QStringList m_valueOptions;
    QStringList m_switches;
    QHash<QString, QString> m_values;
    QString m_errorText;
};

} // namespace kivtools
