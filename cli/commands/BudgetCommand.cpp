#include "BudgetCommand.h"

#include "BudgetReport.h"
#include "CCommandLine.h"
#include "CExportJob.h"
#include "CFormatChoice.h"
#include "CMessages.h"
#include "CProjectExporter.h"
#include "CProjectModel.h"
#include "CProjectRun.h"
#include "CScreenModel.h"
#include "CommandOutput.h"
#include "ProjectBudget.h"

#include <QJsonDocument>

namespace {

const char *const helpEnd = R"end(
A line for each screen with what it takes of the chip's memories, then one for each asset, the largest
first. The figures are the emulator's. --what-if converts each image into all formats that the chip
has, in a scratch folder, and tells bytes and error of each (PSNR in dB, and SSIM, 1 for no
difference); then, for each image, the format that it could have so that every screen fits with the
least error.

Exit codes: 0 every screen fits, 1 one does not, 2 the command line is wrong, 3 the project could not
be opened or drawn, or the report not written.
)end";

bool isOver(const SMemoryUse &use)
{
    return use.used > use.budget;
}

CExportJob::EExit budget(const CCommandLine &line)
{
    using EExit = CExportJob::EExit;
    CMessages messages(true);
    CProjectRun run(line.word(0), messages);
    if (!CProjectRun::loadProgramData(messages) || !run.open())
        return EExit::Failed;
    QVector<SScreenBudget> screens;
    const bool isComplete = run.renderAll([&](SScreenExport &&screen) {
        for (const QString &error : screen.errors) // what is not drawn takes no memory
            messages.warn(
                QStringLiteral("%1: screen \"%2\": %3").arg(line.word(0), screen.name, error));
        screens.append(ProjectBudget::ofScreen(*screen.screen, screen));
    });
    const SProjectBudget whole = ProjectBudget::ofProject(screens);
    const QString folder = run.project().workingDirectory();
    QStringList lines = BudgetReport::toLines(whole, folder);
    QJsonObject json = BudgetReport::toJson(whole, folder);
    if (line.isSet("what-if")) {
        CFormatChoice choice(run.project(), whole);
        choice.measure();
        lines += choice.toLines();
        json.insert(QStringLiteral("what_if"), choice.toJson());
    }
    if (line.value("json") != QLatin1String("-"))
        for (const QString &each : qAsConst(lines))
            CommandOutput::print((CProjectExporter::oneLine(each) + QLatin1Char('\n')).toUtf8(),
                                 messages);
    if (line.isSet("json"))
        CommandOutput::write(line.value("json"), QJsonDocument(json).toJson(), messages);
    if (!isComplete || messages.hasFailed())
        return EExit::Failed;
    for (const SScreenBudget &screen : qAsConst(screens))
        if (isOver(screen.ramG) || isOver(screen.ramDl))
            return EExit::Findings;
    return EExit::Done;
}

} // namespace

namespace BudgetCommand {

int run(const QStringList &arguments)
{
    CCommandLine line("budget", "Tells where the chip's memory goes.", {QStringLiteral("PROJECT")},
                      {{"json",
                        "Writes the figures in JSON; - is the standard output, without the lines "
                        "for people.",
                        "FILE|-"},
                       {"what-if", "Tries every image in all formats."}},
                      helpEnd);
    if (const std::optional<int> code = line.read(arguments))
        return *code;
    return int(budget(line));
}

} // namespace BudgetCommand
