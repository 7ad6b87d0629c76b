// How long the editor takes from its start until its window is painted, with no settings file:
//   xvfb-run -a -s "-screen 0 1600x1000x24" build/bench/bench_startup [project.nyx]
// Looks at the screen as a user does: the window counts as painted once a half of what is seen has
// changed. The screen must be empty. Files are in the system's cache after the first run, which is
// not counted.
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>
#include <QVector>

#include <algorithm>
#include <cstdio>

namespace {
constexpr int Runs = 15;
constexpr int Points = 24;             // in a row, and in a column, that are looked at
constexpr int LongestStart = 30000;    // ms
constexpr unsigned long PauseTime = 2; // ms between two looks

QImage look()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

bool isPainted(const QImage &before, const QImage &now)
{
    int changed = 0;
    for (int y = 0; y < Points; ++y) {
        for (int x = 0; x < Points; ++x) {
            const QPoint point((2 * x + 1) * now.width() / (2 * Points),
                               (2 * y + 1) * now.height() / (2 * Points));
            changed += before.pixel(point) != now.pixel(point) ? 1 : 0;
        }
    }
    return 2 * changed > Points * Points;
}

/// Milliseconds; nothing below 0.
double startOnce(const QString &folder, const QStringList &arguments)
{
    QFile::remove(folder + QStringLiteral("/config.ini"));
    const QImage before = look();
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer time;
    time.start();
    program.start(folder + QStringLiteral("/panel-composer"), arguments);
    double taken = -1;
    while (taken < 0 && !time.hasExpired(LongestStart)) {
        if (isPainted(before, look()))
            taken = double(time.nsecsElapsed()) / 1e6;
        else
            QThread::msleep(PauseTime);
    }
    program.terminate();
    program.waitForFinished();
    return taken;
}

/// The settings lie beside the program, so it gets a folder of its own.
QString programFolder(const QTemporaryDir &place)
{
    const QString folder = place.filePath(QStringLiteral("bin"));
    QProcess::execute(QStringLiteral("cp"),
                      {QStringLiteral("-r"), QStringLiteral(KIV_BIN_DIR), folder});
    return folder;
}
} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QTemporaryDir place;
    qputenv("HOME", place.path().toUtf8());
    const QString folder = programFolder(place);
    QStringList arguments = QGuiApplication::arguments().mid(1);
    for (QString &each : arguments)
        each = QDir::current().absoluteFilePath(each);

    startOnce(folder, arguments);
    QVector<double> times;
    for (int run = 0; run < Runs; ++run)
        times.append(startOnce(folder, arguments));
    std::sort(times.begin(), times.end());
    if (times.first() < 0) {
        std::fputs("The window did not come.\n", stderr);
        return 1;
    }
    std::printf("start to painted window, %d runs: median %.0f ms, fastest %.0f ms, slowest %.0f "
                "ms\n",
                Runs, times[Runs / 2], times.first(), times.last());
    return 0;
}
