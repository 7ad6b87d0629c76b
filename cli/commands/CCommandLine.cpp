#include "CCommandLine.h"

#include "CExportJob.h"
#include "CPathClash.h"

#include <cstdio>

CCommandLine::CCommandLine(const char *name, const char *description, const QStringList &words,
                           const QList<SOption> &options, const char *helpEnd)
    : m_name(QString::fromLatin1(name)),
      m_words(words),
      m_options(options),
      m_helpEnd(QString::fromLatin1(helpEnd))
{
    m_parser.setApplicationDescription(QString::fromLatin1(description));
    m_parser.addPositionalArgument(m_name, QString(), m_name);
    for (const QString &word : words)
        m_parser.addPositionalArgument(word, QString());
    for (const SOption &option : options)
        m_parser.addOption({QString::fromLatin1(option.name),
                            QString::fromLatin1(option.description),
                            QString::fromLatin1(option.value)});
    m_parser.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this text.")});
}

std::optional<int> CCommandLine::read(const QStringList &arguments)
{
    QStringList own = arguments;
    own.removeAt(1);
    const bool parsed = m_parser.parse(own);
    if (m_parser.isSet(QStringLiteral("help"))) {
        std::fputs(qPrintable(m_parser.helpText() + m_helpEnd), stdout);
        return 0;
    }
    if (!parsed)
        return wrong(m_parser.errorText());
    for (const SOption &option : m_options) {
        const QStringList values = m_parser.values(QString::fromLatin1(option.name));
        if (values.size() > 1)
            return wrong(
                QStringLiteral("--%1 may be given only once.").arg(QLatin1String(option.name)));
        if (values.contains(QString()))
            return wrong(QStringLiteral("--%1 needs a value.").arg(QLatin1String(option.name)));
    }
    const QStringList given = m_parser.positionalArguments();
    if (given.size() < m_words.size() || given.contains(QString()))
        return wrong(QStringLiteral("%1 is missing.").arg(m_words.value(given.size())));
    if (given.size() > m_words.size())
        return wrong(
            QStringLiteral("\"%1\" is more than %2 takes.").arg(given[m_words.size()], m_name));
    for (int word = 0; word < given.size(); ++word) { // two that are compared may be one
        CPathClash clash;
        clash.add(given[word], m_words[word]);
        for (const SOption &option : m_options)
            if (QLatin1String(option.value) == QLatin1String("FILE|-"))
                clash.add(value(option.name), QStringLiteral("--") + QLatin1String(option.name));
        if (!clash.text().isEmpty())
            return wrong(clash.text());
    }
    return std::nullopt;
}

int CCommandLine::wrong(const QString &message) const
{
    std::fprintf(stderr, "panel-export: %s\nSee panel-export %s --help.\n",
                 message.toUtf8().constData(), m_name.toUtf8().constData());
    return int(CExportJob::EExit::Usage);
}
