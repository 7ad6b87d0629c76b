#pragma once

#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// The words of a subcommand: `panel-export NAME ...`. Shows help and tells what is wrong.
class CCommandLine
{
public:
    struct SOption
    {
        const char *name;
        const char *description;
        const char *value = nullptr; ///< what its value is called in the help; null: it has none
    };

    /// `words`: the arguments without option that it needs, as they are called in the help.
    /// `helpEnd` follows the options there.
    CCommandLine(const char *name, const char *description, const QStringList &words,
                 const QList<SOption> &options, const char *helpEnd);

    /// `arguments` begin with the program's name and the subcommand's. Nothing when the command is
    /// to run, otherwise the program's exit code.
    std::optional<int> read(const QStringList &arguments);

    bool isSet(const char *option) const { return m_parser.isSet(QLatin1String(option)); }
    QString value(const char *option) const { return m_parser.value(QLatin1String(option)); }
    /// One of the words.
    QString word(int index) const { return m_parser.positionalArguments().value(index); }
    int wordCount() const { return m_parser.positionalArguments().size(); }

    /// Also for what only the command itself can find out. Gives the exit code.
    int wrong(const QString &message) const;

private:
    const QString m_name;
    const QStringList m_words;
    const QList<SOption> m_options;
    const QString m_helpEnd;
    QCommandLineParser m_parser;
};
