#include "CEmulatorAdapter.h"
#include "CExportJob.h"
#include "CExportOptions.h"
#include "StopSignals.h"

#include <QGuiApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>

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
    QCoreApplication::setApplicationName(QStringLiteral("panel-export"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KIV_VERSION));

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
    const int result = int(CExportJob(options).run());
    const int code = StopSignals::exitCode() != 0 ? StopSignals::exitCode() : result;
    if (CEmulatorAdapter::instance()->hasLeftBehind()) {
        std::fflush(stdout);
        std::_Exit(code); // a worker that hangs may come back while things are taken down
    }
    return code;
}
