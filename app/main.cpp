#include "CMainWindow.h"
#include "CTerminationSignals.h"
#include "ProgramInfo.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <cstring>

namespace {
constexpr int NoDisplay = 2; // exit code

/// Asked before Qt is started, which would end the program with an abort.
bool hasDisplay(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "-platform") == 0 || std::strcmp(argv[i], "--platform") == 0)
            return true;
    }
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
}

/// The project named last. A relative path is meant from where the user stands, or else from the
/// programs' folder.
QString fileFromCommandLine()
{
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2)
        return {};
    const QString named = arguments.last();
    const QFileInfo here(named);
    return here.exists() ? here.absoluteFilePath()
                         : QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(named);
}
} // namespace

int main(int argc, char **argv)
{
    if (!hasDisplay(argc, argv)) {
        std::fputs("panel-composer: no display; use panel-export to export a project without one\n",
                   stderr);
        return NoDisplay;
    }
    qSetGlobalQHashSeed(0); // saving the same project twice gives the same bytes
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("panel-composer"));
    QCoreApplication::setApplicationVersion(ProgramInfo::Version);
    const QString file = fileFromCommandLine();
    QDir::setCurrent(QCoreApplication::applicationDirPath());

    CMainWindow window(file);
    const CTerminationSignals termination;
    QObject::connect(&termination, &CTerminationSignals::endWanted, &window, [&window] {
        window.closeUnattended();
        QCoreApplication::exit(0); // also out of the loop of a dialog that is open
    });
    window.show();
    return QApplication::exec();
}
