#include "CExportJob.h"

#include "CPageOutputs.h"
#include "CPlatformTable.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemTree.h"
#include "RegularFile.h"
#include "StopSignals.h"

#include <cstdio>
#include <utility>

CExportJob::CExportJob(const CExportOptions &options)
    : m_options(options), m_messages(options.takesStdout()), m_run(options.project, m_messages)
{
}

CExportJob::~CExportJob() = default;

CExportJob::EExit CExportJob::run()
{
    if (!CProjectRun::loadProgramData(m_messages) || !m_run.open())
        return EExit::Failed;
    const CProjectModel &project = m_run.project();
    m_report = std::make_unique<CExportReport>(linkedFile(m_options.project), project.platform(),
                                               project.workingDirectory());
    for (const QString &problem : m_run.problems())
        m_report->addError(problem);
    const std::optional<QList<int>> rows = wantedRows();
    if (!rows)
        return EExit::Usage;
    CPageOutputs outputs(m_options, m_messages, project, namesOf(*rows), m_run.screensAtOnce());
    int index = 0;
    m_run.render(
        *rows,
        [&](SScreenExport &&screen) {
            addToReport(screen);
            outputs.add(std::move(screen), index++);
        },
        [&](const CScreenModel &screen) {
            addMissing(screen);
            ++index;
        });
    if (StopSignals::exitCode() != 0) {
        outputs.stop();
        return EExit::Failed;
    }
    outputs.finish(m_isComplete);
    if (!m_options.reportFile.isEmpty())
        writeReport(outputs);
    if (m_messages.hasFailed())
        return EExit::Failed;
    const bool isFine = m_report->isRepeatable() && (!m_options.strict || m_report->isClean());
    return isFine ? EExit::Done : EExit::Findings;
}

std::optional<QList<int>> CExportJob::wantedRows()
{
    QList<int> rows;
    QStringList names;
    QStringList unknown = m_options.screens;
    for (int row = 0; row < m_run.project().screenCount(); ++row) {
        const CScreenModel *screen = m_run.project().screen(row);
        if (!screen)
            continue;
        names.append(QLatin1Char('"') + screen->name() + QLatin1Char('"'));
        if (m_options.screens.isEmpty() || m_options.screens.contains(screen->name()))
            rows.append(row);
        unknown.removeAll(screen->name());
    }
    if (unknown.isEmpty())
        return rows;
    m_messages.warn(
        QStringLiteral("%1: There is no screen \"%2\". The screens are: %3.")
            .arg(m_options.project, unknown[0],
                 names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", "))));
    return std::nullopt;
}

QStringList CExportJob::namesOf(const QList<int> &rows) const
{
    QStringList names;
    for (const int row : rows)
        names.append(m_run.project().screen(row)->name());
    return names;
}

SScreenReport CExportJob::newReport(const CScreenModel &screen) const
{
    const SItemCounts counts = countItems(screen);
    SScreenReport report;
    report.name = screen.name();
    report.widgets = counts.widgets;
    report.bitmaps = counts.bitmaps;
    report.ramDlBudget = CPlatformTable::ramDlBudget(m_run.project().platform());
    report.ramGBudget = CPlatformTable::ramGBudget(m_run.project().platform());
    return report;
}

void CExportJob::addToReport(const SScreenExport &screen)
{
    SScreenReport report = newReport(*screen.screen);
    report.ramDl = screen.ramDl;
    report.ramG = screen.ramG;
    report.errors = screen.errors;
    report.assets = screen.memory.assets;
    for (const QString &error : screen.errors)
        m_messages.warn(
            QStringLiteral("%1: screen \"%2\": %3").arg(m_options.project, report.name, error));
    warnOver(report.name, "RAM_DL", report.ramDl, report.ramDlBudget);
    warnOver(report.name, "RAM_G", report.ramG, report.ramGBudget);
    m_report->add(report);
}

void CExportJob::addMissing(const CScreenModel &screen)
{
    m_isComplete = false;
    SScreenReport report = newReport(screen);
    report.errors.append(QStringLiteral("The emulator gave no answer."));
    m_messages.fail(QStringLiteral("%1: screen \"%2\": The emulator gave no answer; the screen is "
                                   "missing from the outputs.")
                        .arg(m_options.project, report.name));
    m_report->add(report);
}

void CExportJob::warnOver(const QString &screen, const char *memory, size_t needed,
                          size_t budget) const
{
    if (needed > budget)
        m_messages.warn(QStringLiteral("%1: screen \"%2\": Needs %3 bytes of %4; the chip has %5.")
                            .arg(m_options.project, screen)
                            .arg(needed)
                            .arg(QLatin1String(memory))
                            .arg(budget));
}

void CExportJob::writeReport(CPageOutputs &outputs)
{
    const QByteArray json = m_report->toJson();
    if (!m_options.reportsToStdout()) {
        outputs.writeFile(m_options.reportFile, json, QStringLiteral("report"));
        return;
    }
    const auto size = static_cast<size_t>(json.size());
    if (std::fwrite(json.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0)
        m_messages.fail(QStringLiteral("The report could not be written to the standard output."));
}
