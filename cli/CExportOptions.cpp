#include "CExportOptions.h"

#include "CPathClash.h"
#include "StreamFile.h"
#include "Subcommands.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

const char *const helpEnd = R"(
Screens are rendered by the emulator, in the order of the project. Text files hold each screen's
display list under a line "===name==="; byte files hold the lists one after the other, nothing
between them. Pictures are named after their screens, and so are images of RAM_G. A package
(panel.bin, panel.h, panel.c, manifest.json) holds all screens and is written whole or not at all.
Folders that are missing are made; files that exist are replaced. Below /dev, such as /dev/stdout or
what a shell's >(...) makes, it is written into; pipes and devices anywhere else are refused.

Exit codes:
  0  all was done
  1  with --strict: something is not drawn as designed, lies outside the chip's limits or does not
     fit into its memory; always: an item was stopped by the clock, and may get further another time
  2  the command line is wrong
  3  the project could not be opened, a screen not rendered, or an output not written
  128 and the signal's number (130, 143): a signal has ended the program, within a second; files
     that were written by then are whole

As many screens are drawn at once as there are cores, with the same result. A screen that takes
longer than 2 seconds is told, one that takes longer than 60 is left out.
)";

struct SOptions
{
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Shows this text.")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               QStringLiteral("Shows the version.")};
    QCommandLineOption dl{QStringLiteral("dl"), QStringLiteral("Writes the display lists as text."),
                          QStringLiteral("FILE")};
    QCommandLineOption bin{QStringLiteral("bin"),
                           QStringLiteral("Writes the display lists as bytes."),
                           QStringLiteral("FILE")};
    QCommandLineOption png{QStringLiteral("png"),
                           QStringLiteral("Writes a picture of each screen into a folder."),
                           QStringLiteral("DIR")};
    QCommandLineOption package{
        QStringLiteral("package"),
        QStringLiteral("Writes the package that a firmware draws from into a folder."),
        QStringLiteral("DIR")};
    QCommandLineOption ramG{
        QStringLiteral("ramg"),
        QStringLiteral("Writes the contents of RAM_G for each screen into a folder."),
        QStringLiteral("DIR")};
    QCommandLineOption screen{
        QStringLiteral("screen"),
        QStringLiteral("Exports only the screen of this name; may be given several times."),
        QStringLiteral("NAME")};
    QCommandLineOption report{QStringLiteral("report"),
                              QStringLiteral("Writes a report in JSON; - is the standard output."),
                              QStringLiteral("FILE|-")};
    QCommandLineOption strict{
        QStringLiteral("strict"),
        QStringLiteral("Fails on render errors, exceeded limits and memory budgets.")};

    QList<QCommandLineOption> all() const
    {
        return {dl, bin, png, package, ramG, screen, report, strict, help, version};
    }
};

} // namespace

CExportOptions::EParsed CExportOptions::parse(const QStringList &arguments)
{
    const SOptions options;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Exports the screens of a project without a display."));
    parser.addOptions(options.all());
    parser.addPositionalArgument(QStringLiteral("PROJECT"),
                                 QStringLiteral("The project file (.nyx)."));

    const bool parsed = parser.parse(arguments);
    if (parser.isSet(options.help)) {
        text = parser.helpText() + QString::fromLatin1(helpEnd) +
               QStringLiteral("\nOther commands, each with its --help:\n") +
               Subcommands::overview();
        return EParsed::ShowText;
    }
    if (parser.isSet(options.version)) {
        text = QCoreApplication::applicationName() + QLatin1Char(' ') +
               QCoreApplication::applicationVersion() + QLatin1Char('\n');
        return EParsed::ShowText;
    }
    if (!parsed)
        return wrong(parser.errorText());
    for (const QCommandLineOption &option :
         {options.dl, options.bin, options.png, options.package, options.ramG, options.report})
        if (parser.values(option).size() > 1)
            return wrong(QStringLiteral("--%1 may be given only once.").arg(option.names()[0]));
    for (const QCommandLineOption &option : {options.dl, options.bin, options.png, options.package,
                                             options.ramG, options.report, options.screen})
        if (parser.values(option).contains(QString()))
            return wrong(QStringLiteral("--%1 needs a value.").arg(option.names()[0]));
    if (parser.isSet(options.package) && parser.isSet(options.screen))
        return wrong(QStringLiteral("--package takes all screens; --screen cannot be given too."));
    const QStringList projects = parser.positionalArguments();
    if (projects.isEmpty() || projects[0].isEmpty())
        return wrong(QStringLiteral("The project file is missing."));
    if (projects.size() > 1)
        return wrong(QStringLiteral("Only one project can be exported at a time, but \"%1\" "
                                    "follows \"%2\".")
                         .arg(projects[1], projects[0]));

    project = projects[0];
    dlFile = parser.value(options.dl);
    binFile = parser.value(options.bin);
    pngFolder = parser.value(options.png);
    packageFolder = parser.value(options.package);
    ramGFolder = parser.value(options.ramG);
    reportFile = parser.value(options.report);
    screens = parser.values(options.screen);
    strict = parser.isSet(options.strict);
    const QString clash = pathClash();
    return clash.isEmpty() ? EParsed::Run : wrong(clash);
}

QString CExportOptions::pathClash() const
{
    CPathClash clash;
    clash.add(project, QStringLiteral("the project"));
    clash.add(dlFile, QStringLiteral("--dl"));
    clash.add(binFile, QStringLiteral("--bin"));
    clash.add(reportFile, QStringLiteral("--report"));
    return clash.text();
}

bool CExportOptions::takesStdout() const
{
    return reportsToStdout() || StreamFile::isStandardOutput(dlFile) ||
           StreamFile::isStandardOutput(binFile) || StreamFile::isStandardOutput(reportFile);
}

CExportOptions::EParsed CExportOptions::wrong(const QString &message)
{
    text = message;
    return EParsed::Wrong;
}
