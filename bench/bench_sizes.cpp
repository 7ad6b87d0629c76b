// What the editor takes for projects of 100 to 100,000 widgets: time and memory of each step, as
// the table of sizes. Every figure comes from a process of its own.
//   bench_sizes [--widgets N,N...] [--steps STEP,STEP...] [--limit SECONDS] [--keep FOLDER]
//   bench_sizes --one STEP FILE       the step alone, for a profiler
#include "BenchProjects.h"
#include "CEditorSteps.h"
#include "CEmulatorAdapter.h"
#include "CMainWindow.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CTimedApplication.h"
#include "ProgramFolder.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

namespace {
constexpr QSize WindowSize(1600, 1000);

/// Lets the editor's model write the project, so that it has all attributes.
int saveAnew(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const CProgramFolder folder;
    CProgramData(folder.path()).loadWidgetLibrary();
    CProjectModel project;
    const QString file = QFile::decodeName(argv[3]);
    return project.loadFromFile(file, nullptr) && project.saveToFile(file, nullptr) ? 0 : 1;
}

/// Runs one step and writes its figures to the standard output.
int runStep(int argc, char **argv)
{
    CTimedApplication application(argc, argv);
    const CProgramFolder folder; // a user's settings stay as they are
    CMainWindow window;
    window.setAutosaveInterval(0);
    window.resize(WindowSize);
    window.show();
    bench::CEditorSteps steps(&application, &window);
    const auto figures = steps.measure(argv[2], QFile::decodeName(argv[3]));
    std::printf("%.1f %.1f %.1f\n", figures.longest, figures.processor, figures.whole);
    std::fflush(stdout);
    std::_Exit(0); // the end of the program is measured as closing
}

struct SResult
{
    double longest = -1; ///< milliseconds; negative: it did not come to its end
    double processor = -1;
    double whole = -1;
    double megabytes = 0; ///< largest memory of the process
};

SResult run(const QByteArrayList &command, int limit)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        alarm(static_cast<unsigned>(limit));
        std::vector<char *> arguments;
        for (const QByteArray &each : command)
            arguments.push_back(const_cast<char *>(each.constData()));
        arguments.push_back(nullptr);
        execv(arguments[0], arguments.data());
        std::_Exit(127);
    }
    close(ends[1]);
    QFile output;
    output.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    QElapsedTimer timer;
    timer.start();
    const QByteArray said = output.readAll();
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    SResult result;
    result.megabytes = static_cast<double>(usage.ru_maxrss) / 1024;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return result;
    const QByteArrayList words = said.trimmed().split(' ');
    if (words.size() == 3) {
        result.longest = words[0].toDouble();
        result.processor = words[1].toDouble();
        result.whole = words[2].toDouble();
    } else { // another program
        const auto milliseconds = [](const timeval &time) {
            return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
        };
        result.longest = result.whole = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        result.processor = milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
    }
    return result;
}

QString cell(const SResult &result, int limit)
{
    if (result.longest < 0)
        return QStringLiteral("> %1 s").arg(limit);
    return QStringLiteral("%1 / %2")
        .arg(result.longest, 0, 'f', 0)
        .arg(result.megabytes, 0, 'f', 0);
}

QByteArrayList commandOf(const QByteArray &step, const QString &file, const QString &folder)
{
    if (step != "export")
        return {"/proc/self/exe", "--one", step, QFile::encodeName(file)};
    return {KIV_BIN_DIR "/panel-export",
            QFile::encodeName(file),
            "--bin",
            QFile::encodeName(folder + QStringLiteral("/screens.bin")),
            "--dl",
            QFile::encodeName(folder + QStringLiteral("/screens.dl"))};
}

QString printTable(const QStringList &sizes, const QByteArrayList &steps, const QString &folder,
                   bool oneScreen, int limit)
{
    QString text = QStringLiteral("| widgets (screens) |");
    for (const QByteArray &step : steps)
        text += QStringLiteral(" %1 |").arg(QString::fromLatin1(step));
    text += QStringLiteral("\n|---|") + QStringLiteral("---|").repeated(steps.size()) +
            QLatin1Char('\n');
    for (const QString &size : sizes) {
        const int widgets = size.toInt();
        const QString file = folder + QStringLiteral("/%1.nyx").arg(widgets);
        const int screens = oneScreen ? 1 : bench::screensFor(widgets);
        writeFile(file, bench::manyScreens(widgets, screens));
        run({"/proc/self/exe", "--one", "as saved", QFile::encodeName(file)}, limit);
        text += QStringLiteral("| %L1 (%L2) |").arg(widgets).arg(screens);
        for (const QByteArray &step : steps) {
            const SResult result = run(commandOf(step, file, folder), limit);
            text += QLatin1Char(' ') + cell(result, limit) + QStringLiteral(" |");
            std::fprintf(stderr,
                         "%7d %-10s %9.1f ms (processor %9.1f), in all %9.1f ms, %6.0f MB\n",
                         widgets, step.constData(), result.longest, result.processor, result.whole,
                         result.megabytes);
        }
        text += QLatin1Char('\n');
    }
    return text;
}
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("KIV_BIN_DIR", KIV_BIN_DIR);
    qSetGlobalQHashSeed(0); // as the editor
    if (argc == 4 && qstrcmp(argv[1], "--one") == 0)
        return qstrcmp(argv[2], "as saved") == 0 ? saveAnew(argc, argv) : runStep(argc, argv);

    const QCoreApplication application(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    const QString allSteps =
        QString::fromLatin1(bench::CEditorSteps::names().join(',') + ",export");
    const auto add = [&options](const char *name, const char *description, const char *value,
                                const QString &usual) {
        options.addOption({QString::fromLatin1(name), QString::fromLatin1(description),
                           QString::fromLatin1(value), usual});
    };
    add("widgets", "Sizes, with commas.", "N,...", QStringLiteral("100,1000,10000,100000"));
    add("steps", "Steps, with commas.", "STEP,...", allSteps);
    add("limit", "Seconds after which a step is given up.", "SECONDS", QStringLiteral("300"));
    options.addOption({QStringLiteral("one-screen"), QStringLiteral("All on one screen.")});
    add("keep", "Where the projects are left.", "FOLDER", QString());
    options.process(application);
    const QTemporaryDir temporary;
    const QString folder = options.isSet(QStringLiteral("keep"))
                               ? options.value(QStringLiteral("keep"))
                               : temporary.path();
    const QString table =
        printTable(options.value(QStringLiteral("widgets")).split(QLatin1Char(',')),
                   options.value(QStringLiteral("steps")).toLatin1().split(','), folder,
                   options.isSet(QStringLiteral("one-screen")),
                   options.value(QStringLiteral("limit")).toInt());
    std::printf("%s\nmilliseconds for which the window does not answer (export: of the whole "
                "program) / megabytes at most\n",
                qPrintable(table));
    return 0;
}
