// What an export costs as a whole: panel-export as a program, its time beside its processor time,
// and the most memory that it had. On one core the two are the same; what they differ by on more is
// the work that was done beside other work, or the sleep that was none.

#include "ProgramCost.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

namespace {

using bench::ECores;

struct SCase
{
    const char *title;
    int screens;
    int widgets; ///< on each
    int width;
    int height;
    std::vector<const char *> outputs;
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
            std::vector<const char *> words{"panel-export", "p.nyx"};
            words.insert(words.end(), each.outputs.begin(), each.outputs.end());
            const bench::SProgramCost cost =
                bench::programCost(QFile::encodeName(folder.path()).constData(), words, cores);
            std::printf("%-42s %5s %8.2f %10.2f %9.2f %8.0f%s\n", each.title,
                        cores == ECores::One ? "one" : "all", cost.seconds, cost.processorSeconds,
                        cost.seconds / cost.processorSeconds, cost.megabytes,
                        cost.exitCode == 0 ? "" : "  FAILED");
            std::fflush(stdout);
        }
    }
    return 0;
}
