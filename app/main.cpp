#include "CEmulatorAdapter.h"
#include "CMainWindow.h"
#include "CTerminationSignals.h"
#include "ProgramInfo.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

namespace {
constexpr int NoDisplay = 2; // exit code

QtMessageHandler usualHandler = nullptr;

/// In force while Qt looks for a display. Without one it would end the program with a crash after
/// several lines about its plugins.
void handleStartMessages(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtFatalMsg) {
        std::fputs("panel-composer: no display; panel-export exports a project without one\n",
                   stderr);
        std::_Exit(NoDisplay);
    }
    if (!QByteArray(context.category).startsWith("qt.qpa"))
        usualHandler(type, context, text);
}

CMainWindow *openWindow = nullptr; ///< while it is made, it may ask about the file

/// The program ends behind its own back when the display goes: with the session of the user, say.
void keepWhatIsUnsaved()
{
    if (openWindow)
        openWindow->keepUnsaved();
}

/// The project named last. A relative path is meant from where the user stands, or else from the
/// programs' folder.
QString fileFromCommandLine()
{
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2)
        return {};
    const QString &named = arguments.last();
    const QFileInfo here(named);
    return here.exists() ? here.absoluteFilePath()
                         : QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(named);
}
} // namespace

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0); // saving the same project twice gives the same bytes
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    usualHandler = qInstallMessageHandler(handleStartMessages);
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    QCoreApplication::setApplicationName(ProgramInfo::Name); // of windows without a title
    QCoreApplication::setApplicationVersion(ProgramInfo::Version);
    const QString file = fileFromCommandLine();
    QDir::setCurrent(QCoreApplication::applicationDirPath());

    const CTerminationSignals termination; // before a project is opened: its lock is to be released
    bool isEnding = false;
    QObject::connect(&termination, &CTerminationSignals::endWanted, qApp, [&] {
        isEnding = true;
        if (openWindow)
            openWindow->saveUnattended();
        // Also out of the loop of a dialog that is open; whoever opened it still needs the project.
        QCoreApplication::exit(0);
    });
    // Before the user is asked about his changes: whoever ends the session may not wait for him.
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &application,
        [] {
            if (openWindow)
                openWindow->saveUnattended();
        },
        Qt::DirectConnection);
    int code = 0;
    {
        CMainWindow window(file);
        openWindow = &window;
        std::atexit(keepWhatIsUnsaved);
        if (!isEnding) {
            window.show();
            code = QApplication::exec();
        }
        openWindow = nullptr;
        if (isEnding)
            window.closeUnattended();
    }
    // What could not be ended may come back at any moment, also while things are taken down.
    if (CEmulatorAdapter::instance()->hasLeftBehind())
        std::_Exit(code);
    return code;
}
