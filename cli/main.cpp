#include "CEmulatorAdapter.h"
#include "CExportJob.h"
#include "CExportOptions.h"
#include "StopSignals.h"
#include "Subcommands.h"

#include <QGuiApplication>
#include <QLocale>
#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>

namespace {

/// What the process ends with when a command did: a signal's code goes first.
int ended(int result)
{
    const int code = StopSignals::exitCode() != 0 ? StopSignals::exitCode() : result;
    if (CEmulatorAdapter::instance()->hasLeftBehind()) {
        std::fflush(stdout);
        std::_Exit(code); // a worker that hangs may come back while things are taken down
    }
    return code;
}

} // namespace

int main(int argc, char *argv[])
{
    StopSignals::watch();
    qSetGlobalQHashSeed(0); // the same project gives the same bytes in every run
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // What concerns the user's files is told, and not Qt's remarks about the lack of a session or
    // of icons; QT_LOGGING_RULES brings them back.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    QGuiApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("qt.*.warning=false"));
    qSetMessagePattern(QStringLiteral("panel-export: %{message}"));
    QLocale::setDefault(QLocale::c()); // other programs read the numbers
    QCoreApplication::setApplicationName(QStringLiteral("panel-export"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KIV_VERSION));

    if (const std::optional<int> result = Subcommands::run(QCoreApplication::arguments()))
        return ended(*result);
    CExportOptions options;
    switch (options.parse(QCoreApplication::arguments())) {
    case CExportOptions::EParsed::ShowText:
        std::fputs(qPrintable(options.text), stdout);
        return 0;
    case CExportOptions::EParsed::Wrong:
        std::fprintf(stderr, "panel-export: %s\nSee panel-export --help.\n",
                     options.text.toUtf8().constData());
        return int(CExportJob::EExit::Usage);
    case CExportOptions::EParsed::Run:
        break;
    }
    return ended(int(CExportJob(options).run()));
}
