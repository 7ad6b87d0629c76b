#include "CExportJob.h"

#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CPageOutputs.h"
#include "CPlatformTable.h"
#include "CProgramData.h"
#include "CProjectExporter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemTree.h"
#include "RegularFile.h"
#include "StopSignals.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

constexpr int64_t MostFrameBytes = int64_t{40} << 20; ///< of the frames that are drawn at once
constexpr std::chrono::seconds Patience{60};          ///< for a screen

} // namespace

CExportJob::CExportJob(const CExportOptions &options)
    : m_options(options), m_messages(options.takesStdout())
{
}

CExportJob::~CExportJob() = default;

CExportJob::EExit CExportJob::run()
{
    if (!loadProgramData() || !openProject())
        return EExit::Failed;
    const std::optional<QList<int>> rows = wantedRows();
    if (!rows)
        return EExit::Usage;
    CPageOutputs outputs(m_options, m_messages, *m_project, namesOf(*rows), screensAtOnce());
    render(*rows, outputs);
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

bool CExportJob::loadProgramData()
{
    const CProgramData data(QCoreApplication::applicationDirPath());
    for (const QString &problem : {data.loadWidgetLibrary(), data.registerEmulator()})
        if (!problem.isEmpty())
            m_messages.fail(problem);
    return !m_messages.hasFailed();
}

bool CExportJob::openProject()
{
    const QString path = linkedFile(m_options.project); // its images stand beside it
    QString error;
    m_project = std::make_unique<CProjectModel>();
    if (!m_project->loadFromFile(path, &error)) {
        m_messages.fail(error);
        return false;
    }
    const QString platform = m_project->platform();
    m_report = std::make_unique<CExportReport>(path, platform, m_project->workingDirectory());
    const CPlatformTable platforms;
    if (!platforms.isKnown(platform)) {
        const QString problem =
            QStringLiteral("The platform \"%1\" is not known; known are %2.")
                .arg(platform, platforms.platforms().join(QStringLiteral(", ")));
        m_messages.warn(QStringLiteral("%1: %2").arg(m_options.project, problem));
        m_report->addError(problem);
    }
    return true;
}

std::optional<QList<int>> CExportJob::wantedRows()
{
    QList<int> rows;
    QStringList names;
    QStringList unknown = m_options.screens;
    for (int row = 0; row < m_project->screenCount(); ++row) {
        const CScreenModel *screen = m_project->screen(row);
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
        names.append(m_project->screen(row)->name());
    return names;
}

/// One more than are drawn at once, so that the next one waits at the emulator's door; fewer when
/// they are large.
int CExportJob::screensAtOnce() const
{
    const QSize size = m_project->resolution().expandedTo(QSize(1, 1));
    const int most = static_cast<int>(MostFrameBytes / (int64_t{4} * size.width() * size.height()));
    return std::clamp(CEmulatorAdapter::mostAtOnce() + 1, 1, std::max(most, 1));
}

void CExportJob::render(const QList<int> &rows, CPageOutputs &outputs)
{
    CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
    CEmulatorSession session(adapter);
    session.open(m_project.get());
    CProjectExporter exporter(adapter);
    prepare(exporter, session);
    int next = 0; // of the rows; what is left out in between gave no answer
    const auto missUntil = [&](const CScreenModel *screen) {
        for (; next < rows.size() && m_project->screen(rows[next]) != screen; ++next)
            addMissing(*m_project->screen(rows[next]));
    };
    exporter.render(m_project.get(), CProjectExporter::EContent::DisplayListsAndFrames, &rows,
                    [&](SScreenExport &&screen) {
                        missUntil(screen.screen);
                        addToReport(screen);
                        outputs.add(std::move(screen), next++);
                    });
    session.close();
    if (StopSignals::exitCode() == 0)
        missUntil(nullptr);
}

void CExportJob::prepare(CProjectExporter &exporter, CEmulatorSession &session) const
{
    exporter.setAtOnce(screensAtOnce(), [this, &session] { session.restart(m_project.get()); });
    exporter.setCancelled([] { return StopSignals::exitCode() != 0; });
    exporter.setPatience(Patience, [this](const QString &screen) {
        m_messages.warn(QStringLiteral("%1: screen \"%2\": Takes longer than %3 s to draw.")
                            .arg(m_options.project, screen)
                            .arg(CProjectExporter::UsualPatience.count() / 1000));
    });
}

SScreenReport CExportJob::newReport(const CScreenModel &screen) const
{
    const SItemCounts counts = countItems(screen);
    SScreenReport report;
    report.name = screen.name();
    report.widgets = counts.widgets;
    report.bitmaps = counts.bitmaps;
    report.ramDlBudget = CPlatformTable::ramDlBudget(m_project->platform());
    report.ramGBudget = CPlatformTable::ramGBudget(m_project->platform());
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
