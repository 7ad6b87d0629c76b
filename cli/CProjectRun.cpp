#include "CProjectRun.h"

#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CMessages.h"
#include "CPlatformTable.h"
#include "CProgramData.h"
#include "CProjectExporter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "RegularFile.h"
#include "StopSignals.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

constexpr int64_t MostFrameBytes = int64_t{40} << 20; ///< of the frames that are drawn at once
constexpr std::chrono::seconds Patience{60};          ///< for a screen

} // namespace

CProjectRun::CProjectRun(const QString &file, CMessages &messages)
    : m_file(file), m_messages(messages)
{
}

CProjectRun::~CProjectRun() = default;

bool CProjectRun::loadProgramData(CMessages &messages)
{
    const CProgramData data(QCoreApplication::applicationDirPath());
    for (const QString &problem : {data.loadWidgetLibrary(), data.registerEmulator()})
        if (!problem.isEmpty())
            messages.fail(problem);
    return !messages.hasFailed();
}

bool CProjectRun::open()
{
    const QString path = linkedFile(m_file); // its images stand beside it
    QString error;
    m_project = std::make_unique<CProjectModel>();
    if (!m_project->loadFromFile(path, &error)) {
        m_messages.fail(error);
        return false;
    }
    const QString platform = m_project->platform();
    const CPlatformTable platforms;
    if (!platforms.isKnown(platform)) {
        m_problems.append(QStringLiteral("The platform \"%1\" is not known; known are %2.")
                              .arg(platform, platforms.platforms().join(QStringLiteral(", "))));
        m_messages.warn(QStringLiteral("%1: %2").arg(m_file, m_problems.last()));
    }
    return true;
}

void CProjectRun::openNothing()
{
    m_project = std::make_unique<CProjectModel>();
}

std::unique_ptr<CProjectModel> CProjectRun::takeProject()
{
    return std::move(m_project);
}

/// One more than are drawn at once, so that the next one waits at the emulator's door; fewer when
/// they are large.
int CProjectRun::screensAtOnce() const
{
    const QSize size = m_project->resolution().expandedTo(QSize(1, 1));
    const int most = static_cast<int>(MostFrameBytes / (int64_t{4} * size.width() * size.height()));
    return std::clamp(CEmulatorAdapter::mostAtOnce() + 1, 1, std::max(most, 1));
}

void CProjectRun::render(const QList<int> &rows, const std::function<void(SScreenExport &&)> &take,
                         const std::function<void(const CScreenModel &)> &missing)
{
    CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
    CEmulatorSession session(adapter);
    session.open(m_project.get());
    CProjectExporter exporter(adapter);
    prepare(exporter, session);
    int next = 0; // of the rows; what is left out in between gave no answer
    const auto missUntil = [&](const CScreenModel *screen) {
        for (; next < rows.size() && m_project->screen(rows[next]) != screen; ++next)
            missing(*m_project->screen(rows[next]));
    };
    exporter.render(m_project.get(), CProjectExporter::EContent::DisplayListsAndFrames, &rows,
                    [&](SScreenExport &&screen) {
                        missUntil(screen.screen);
                        ++next;
                        take(std::move(screen));
                    });
    session.close();
    if (StopSignals::exitCode() == 0)
        missUntil(nullptr);
}

bool CProjectRun::renderAll(const std::function<void(SScreenExport &&)> &take)
{
    QList<int> rows;
    for (int row = 0; row < m_project->screenCount(); ++row)
        if (m_project->screen(row))
            rows.append(row);
    bool isComplete = true;
    render(rows, take, [&](const CScreenModel &screen) {
        isComplete = false;
        m_messages.fail(QStringLiteral("%1: screen \"%2\": The emulator gave no answer.")
                            .arg(m_file, screen.name()));
    });
    return isComplete && StopSignals::exitCode() == 0;
}

void CProjectRun::prepare(CProjectExporter &exporter, CEmulatorSession &session) const
{
    exporter.setAtOnce(screensAtOnce(), [this, &session] { session.restart(m_project.get()); });
    exporter.setCancelled([] { return StopSignals::exitCode() != 0; });
    exporter.setPatience(Patience, [this](const QString &screen) {
        m_messages.warn(QStringLiteral("%1: screen \"%2\": Takes longer than %3 s to draw.")
                            .arg(m_file, screen)
                            .arg(CProjectExporter::UsualPatience.count() / 1000));
    });
}
