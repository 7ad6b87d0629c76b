#include "CToolArguments.h"

namespace kivtools {

CToolArguments::CToolArguments(QStringList valueOptions, QStringList switches)
    : m_valueOptions(std::move(valueOptions)), m_switches(std::move(switches))
{
}

bool CToolArguments::parse(const QStringList &words)
{
    for (int i = 0; i < words.size(); ++i) {
        const QString &option = words[i];
        const bool takesValue = m_valueOptions.contains(option);
        if (!takesValue && !m_switches.contains(option))
            return fail(QStringLiteral("unknown option '%1'").arg(option));
        if (isSet(option))
            return fail(QStringLiteral("option '%1' is given twice").arg(option));
        if (takesValue && i + 1 == words.size())
            return fail(QStringLiteral("option '%1' lacks its value").arg(option));
        m_values.insert(option, takesValue ? words[++i] : QString());
    }
    return true;
}

bool CToolArguments::fail(const QString &text)
{
    m_errorText = text;
    return false;
}

} // namespace kivtools
