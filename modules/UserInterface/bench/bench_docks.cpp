// What the docks that look at pages cost the GUI thread, in the whole program without a display:
// two pages of 1,000 widgets and ten small ones, one after the other looked at while nothing is
// done; then one widget is moved. All that follows counts until everything is at rest.
//   bench_docks [checks|budget|none]...    those docks alone, for a profiler
#include "CCommandChangeItemProperty.h"
#include "CEmulatorAdapter.h"
#include "CMainWindow.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenRounds.h"
#include "CTimedApplication.h"
#include "ProgramFolder.h"
#include "PropertyKey.h"

#include <QAction>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <QUndoStack>

#include <algorithm>
#include <cstdio>

namespace {
constexpr QSize WindowSize(1900, 1080);
constexpr int Quiet = 2 * CScreenRounds::IdleTime; ///< milliseconds; nothing more comes then
const char *const Kinds[] = {"Kiv_Button_T", "Kiv_Text_T", "Kiv_Rectangle_T", "Kiv_Circle_T",
                             "Kiv_Progress_T"};

/// Small and close together, so that much is found.
QByteArray page(const char *name, int widgets)
{
    QByteArray xml = QByteArray("<Kiv_Screen_T name=\"") + name + "\" color=\"#101418\">";
    for (int index = 0; index < widgets; ++index)
        xml +=
            QStringLiteral("<%1 name=\"%2 %3\" id=\"%3\" x_coordinate=\"%4\" y_coordinate=\"%5\" "
                           "width=\"40\" height=\"30\"/>\n")
                .arg(QLatin1String(Kinds[index % 5]), QLatin1String(name))
                .arg(index + 1)
                .arg(10 + index % 45 * 45)
                .arg(10 + index / 45 * 44)
                .toUtf8();
    return xml + "</Kiv_Screen_T>";
}

QByteArray project()
{
    QByteArray xml = "<Kiv_Project_T project_name=\"docks\" platform=\"QX110\" width=\"2048\" "
                     "height=\"1080\">" +
                     page("Full", 1000) + page("Other", 1000);
    for (int number = 1; number <= 10; ++number)
        xml += page(qPrintable(QStringLiteral("Small %1").arg(number)), 20);
    return xml + "</Kiv_Project_T>";
}

class CDocks
{
public:
    CDocks(CTimedApplication *application, const CProgramFolder &folder)
        : m_application(application)
    {
        const QString file = folder.path("docks.nyx");
        writeFile(file, project());
        m_window.setAutosaveInterval(0);
        m_window.resize(WindowSize);
        m_window.show();
        m_window.openProjectFile(file);
        settle();
    }
    ~CDocks() { m_window.closeProject(); }

    void show(const QByteArrayList &docks)
    {
        for (QDockWidget *dock : m_window.findChildren<QDockWidget *>())
            if (docks.contains(dock->objectName().toLatin1()))
                dock->toggleViewAction()->trigger();
    }

    void move()
    {
        CProjectModel *model = m_window.project();
        CItemModel *item = model->screen(0)->childItem(500);
        model->undoStack()->push(new CCommandChangeItemProperty(
            item, PropertyKey::X, item->x() + 1, item->propertyValue(PropertyKey::X)));
    }

    template<typename Act>
    void measure(const char *what, Act act)
    {
        act();
        settle();
        std::printf("  %-14s in all %8.1f ms, the longest piece %7.1f ms: %s\n", what, m_all,
                    m_longest.processor, m_longest.what.constData());
        std::fflush(stdout);
    }

private:
    /// Until nothing has been done for long.
    void settle()
    {
        m_all = 0;
        m_longest = {0, 0, {}};
        QElapsedTimer quiet;
        quiet.start();
        while (quiet.elapsed() < Quiet) {
            QCoreApplication::processEvents();
            double now = 0;
            for (const CTimedApplication::Handler &each : m_application->takeHandlers()) {
                now += each.processor;
                if (each.processor > m_longest.processor)
                    m_longest = each;
            }
            m_all += now;
            if (now > 0.5 || CEmulatorAdapter::instance()->isBusy())
                quiet.start();
            QThread::usleep(500);
        }
    }

    double m_all = 0; ///< milliseconds of the GUI thread
    CTimedApplication::Handler m_longest{};
    CTimedApplication *const m_application;
    CMainWindow m_window;
};
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("KIV_BIN_DIR", KIV_BIN_DIR);
    CTimedApplication application(argc, argv);
    const CProgramFolder folder; // a user's settings stay as they are
    QByteArrayList docks;
    for (int i = 1; i < argc; ++i)
        docks.append(argv[i]);
    if (docks.isEmpty()) { // each in a process of its own
        for (const QStringList &each :
             {QStringList{"none"}, {"checks"}, {"budget"}, {"checks", "budget"}})
            QProcess::execute(QCoreApplication::applicationFilePath(), each);
        return 0;
    }
    CDocks editor(&application, folder);
    std::printf("docks shown: %s\n", docks.join(", ").constData());
    editor.measure("show", [&] { editor.show(docks); });
    editor.measure("move an item", [&] { editor.move(); });
    return 0;
}
