// What an export costs as a whole: panel-export as a program, its time beside its processor time,
// and the most memory that it had. On one core the two are the same; what they differ by on more is
// the work that was done beside other work, or the sleep that was none.

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

enum class ECores { All, One };

struct SCase
{
    const char *title;
    int screens;
    int widgets; ///< on each
    int width;
    int height;
    std::vector<const char *> outputs;
};

struct SCost
{
    double seconds;
    double processorSeconds;
    double megabytes; ///< at most
    bool isDone;
};

/// Rectangles, discs and buttons, all screens different.
QByteArray projectOf(const SCase &each)
{
    const auto number = [](int value) { return QByteArray::number(value); };
    QByteArray text = "<Kiv_Project_T platform=\"QX110\" width=\"" + number(each.width) +
                      "\" height=\"" + number(each.height) + "\">\n";
    int id = 0;
    for (int screen = 0; screen < each.screens; ++screen) {
        text += "<Kiv_Screen_T name=\"Page " + number(screen + 1) + "\" color=\"#102030\">\n";
        for (int i = 0; i < each.widgets; ++i) {
            ++id;
            const QByteArray place = " id=\"" + number(id) + "\" x_coordinate=\"" +
                                     number(i * 37 % (each.width - 60)) + "\" y_coordinate=\"" +
                                     number(i * 53 % (each.height - 30)) + "\" color=\"#" +
                                     number(100000 + id * 7919 % 899999) + "\"";
            if (i % 3 == 0)
                text += "<Kiv_Rectangle_T width=\"40\" height=\"30\"" + place + "/>\n";
            else if (i % 3 == 1)
                text += "<Kiv_Circle_T radius=\"15\"" + place + "/>\n";
            else
                text += "<Kiv_Button_T width=\"60\" height=\"24\" text=\"B" + number(id) + '"' +
                        place + "/>\n";
        }
        text += "</Kiv_Screen_T>\n";
    }
    return text + "</Kiv_Project_T>\n";
}

[[noreturn]] void becomeExport(const SCase &each, const char *folder, ECores cores)
{
    cpu_set_t allowed;
    if (cores == ECores::One && sched_getaffinity(0, sizeof(allowed), &allowed) == 0) {
        int core = 0;
        while (!CPU_ISSET(core, &allowed))
            ++core;
        CPU_ZERO(&allowed);
        CPU_SET(core, &allowed);
        sched_setaffinity(0, sizeof(allowed), &allowed);
    }
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    std::vector<const char *> arguments{"panel-export", "p.nyx"};
    arguments.insert(arguments.end(), each.outputs.begin(), each.outputs.end());
    arguments.push_back(nullptr);
    if (chdir(folder) == 0)
        execv(KIV_BIN_DIR "/panel-export", const_cast<char *const *>(arguments.data()));
    _exit(127);
}

SCost run(const SCase &each, const char *folder, ECores cores)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0)
        becomeExport(each, folder, cores);
    int status = -1;
    rusage used = {};
    wait4(child, &status, 0, &used);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return {took.count(), seconds(used.ru_utime) + seconds(used.ru_stime),
            static_cast<double>(used.ru_maxrss) / 1024, status == 0};
}

} // namespace

int main()
{
    const std::vector<const char *> lists{"--dl", "o.dl", "--bin", "o.bin"};
    const std::vector<const char *> all{"--dl",      "o.dl", "--bin",    "o.bin",
                                        "--png",     "png",  "--ramg",   "ramg",
                                        "--package", "pack", "--report", "r.json"};
    const std::vector<const char *> pictures{"--png", "png"};
    const SCase cases[] = {
        {"100 screens, 10,000 widgets, lists", 100, 100, 480, 272, lists},
        {"100 screens, 10,000 widgets, pictures", 100, 100, 480, 272, pictures},
        {"100 screens, 10,000 widgets, all outputs", 100, 100, 480, 272, all},
        {"1,000 screens, 100,000 widgets, lists", 1000, 100, 480, 272, lists},
        {"1,000 screens, 100,000 widgets, pictures", 1000, 100, 480, 272, pictures},
        {"200 screens of 2048 x 2048, pictures", 200, 40, 2048, 2048, pictures},
    };
    std::printf("%-42s %5s %8s %10s %9s %8s\n", "export", "cores", "time, s", "processor",
                "time:pr.", "most MB");
    for (const SCase &each : cases) {
        const QTemporaryDir folder;
        QFile project(folder.filePath(QStringLiteral("p.nyx")));
        const QByteArray text = projectOf(each);
        if (!project.open(QIODevice::WriteOnly) || project.write(text) != text.size())
            return 1;
        project.close();
        for (const ECores cores : {ECores::One, ECores::All}) {
            const SCost cost = run(each, QFile::encodeName(folder.path()).constData(), cores);
            std::printf("%-42s %5s %8.2f %10.2f %9.2f %8.0f%s\n", each.title,
                        cores == ECores::One ? "one" : "all", cost.seconds, cost.processorSeconds,
                        cost.seconds / cost.processorSeconds, cost.megabytes,
                        cost.isDone ? "" : "  FAILED");
            std::fflush(stdout);
        }
    }
    return 0;
}
