#include "CheckCommand.h"

#include "CCommandLine.h"
#include "CExportJob.h"
#include "CMessages.h"
#include "CProjectExporter.h"
#include "CProjectModel.h"
#include "CProjectRun.h"
#include "CScreenModel.h"
#include "CommandOutput.h"
#include "FindingsReport.h"
#include "ProjectChecks.h"

#include <QFile>
#include <QJsonDocument>

namespace {

const char *const helpEnd = R"end(
A line for each finding: the screen, the item, how grave it is, what is wrong, and the rule's name in
brackets. A rule may be ignored for an item, with a reason, in the editor or in the project file:
  ignored_checks="contrast: a watermark"
What is found of the project as a whole is ignored there, all of a rule or what brackets tell:
  ignored_checks="unused-image [p_ConvertedImages/old_L8.raw]: for the next version"
Such findings are in the reports with their reason and count nowhere. The attributes dots_per_inch
(150) and memory_share (80, percent) of the project say what the rules of touch and memory ask for.

Exit codes: 0 no errors, 1 errors, or warnings with --warnings-as-errors, 2 the command line is wrong,
3 the project could not be opened or drawn, or a report not written.
)end";

CExportJob::EExit check(const CCommandLine &line)
{
    using EExit = CExportJob::EExit;
    CMessages messages(true);
    CProjectRun run(line.word(0), messages);
    if (!CProjectRun::loadProgramData(messages) || !run.open())
        return EExit::Failed;
    Findings findings;
    ProjectChecks::ImageContents images;
    CPictureLook pictures;
    const bool isComplete = run.renderAll([&](SScreenExport &&screen) {
        findings += ProjectChecks::ofScreen(*screen.screen, screen, pictures.look(screen));
        images += ProjectChecks::imagesOf(screen);
    });
    findings += ProjectChecks::ofProject(run.project(), images);
    findings += ProjectChecks::ofFiles(run.project(),
                                       CImageFileLook().look(SImageFiles::of(run.project())));

    const QString output = QStringLiteral("-");
    if (line.value("json") != output && line.value("sarif") != output)
        for (const QString &each : FindingsReport::toLines(findings, line.isSet("ignored")))
            CommandOutput::print((CProjectExporter::oneLine(each) + QLatin1Char('\n')).toUtf8(),
                                 messages);
    if (line.isSet("json"))
        CommandOutput::write(
            line.value("json"),
            QJsonDocument(FindingsReport::toJson(findings, run.project().workingDirectory()))
                .toJson(),
            messages);
    if (line.isSet("sarif")) {
        QFile document(line.word(0));
        const QByteArray bytes =
            document.open(QIODevice::ReadOnly) ? document.readAll() : QByteArray();
        CommandOutput::write(
            line.value("sarif"),
            FindingsReport::toSarif(findings, line.word(0), bytes, QStringLiteral(KIV_VERSION)),
            messages);
    }
    if (!isComplete || messages.hasFailed())
        return EExit::Failed;
    const FindingsReport::SCounts counts = FindingsReport::count(findings);
    const bool isFine =
        counts.errors == 0 && (counts.warnings == 0 || !line.isSet("warnings-as-errors"));
    return isFine ? EExit::Done : EExit::Findings;
}

} // namespace

namespace CheckCommand {

int run(const QStringList &arguments)
{
    CCommandLine line("check", "Tells what of a project will go wrong on the device.",
                      {QStringLiteral("PROJECT")},
                      {{"json",
                        "Writes the findings in JSON; - is the standard output, without the lines "
                        "for people.",
                        "FILE|-"},
                       {"sarif", "Writes the findings in SARIF 2.1.0, for code hosts.", "FILE|-"},
                       {"ignored", "Tells the findings that are ignored too, with their reasons."},
                       {"warnings-as-errors", "Fails on warnings too."}},
                      helpEnd);
    if (const std::optional<int> code = line.read(arguments))
        return *code;
    if (line.value("json") == QLatin1String("-") && line.value("sarif") == QLatin1String("-"))
        return line.wrong(QStringLiteral("Only one report can go to the standard output."));
    return int(check(line));
}

} // namespace CheckCommand
