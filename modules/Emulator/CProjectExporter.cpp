#include "CProjectExporter.h"

#include "CBackgroundRender.h"
#include "CEmulatorAdapter.h"
#include "CFileWriter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ScreenAnswer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPersistentModelIndex>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <memory>
#include <utility>

namespace {

bool exportRuns = false; // there is one emulator, and waiting turns the event loop

QList<QPersistentModelIndex> screensOf(const CProjectModel *project, const QList<int> *rows)
{
    QList<QPersistentModelIndex> screens;
    for (int row = 0; row < project->rowCount(); ++row)
        if (project->screen(row) && (!rows || rows->contains(row)))
            screens.append(project->index(row, 0));
    return screens;
}

CScreenModel *screenOf(const QPersistentModelIndex &screen)
{
    return qobject_cast<const CProjectModel *>(screen.model())->screen(screen.row());
}

/// Found out before the screens are rendered.
QString whyNotOpened(const QString &path)
{
    const QString reason = CFileWriter::whyNot(path);
    return reason.isEmpty()
               ? QString()
               : QCoreApplication::translate("CProjectExporter", "%1 could not be opened: %2")
                     .arg(path, reason);
}

} // namespace

/// One screen on its way.
struct CProjectExporter::SAsked
{
    QPersistentModelIndex screen; ///< invalid when it, or the project, has gone meanwhile
    std::unique_ptr<CBackgroundRender> render;
    QList<SExportedItem> items;
};

CProjectExporter::CProjectExporter(CEmulatorAdapter *adapter) : m_adapter(adapter)
{
}

void CProjectExporter::setErrorReport(std::function<void(const QString &)> report)
{
    m_report = std::move(report);
}

void CProjectExporter::setFindings(std::function<void(const QString &, const QString &)> findings)
{
    m_findings = std::move(findings);
}

void CProjectExporter::setProgress(std::function<bool(int, int)> progress)
{
    m_progress = std::move(progress);
}

void CProjectExporter::setCancelled(std::function<bool()> isCancelled)
{
    m_isCancelled = std::move(isCancelled);
}

void CProjectExporter::setPatience(Milliseconds patience, std::function<void(const QString &)> slow)
{
    m_patience = patience;
    m_slow = std::move(slow);
}

void CProjectExporter::setAtOnce(int screens, std::function<void()> restart)
{
    m_atOnce = screens;
    m_restart = std::move(restart);
}

void CProjectExporter::setWaitStep(std::function<bool()> step)
{
    m_waitStep = std::move(step);
}

CProjectExporter::EResult
CProjectExporter::render(CProjectModel *project, EContent content, const QList<int> *rows,
                         const std::function<void(SScreenExport &&)> &take)
{
    if (!project)
        return EResult::Written;
    if (exportRuns)
        return EResult::Refused;
    exportRuns = true;
    m_idleSteps = 0;
    m_adapter->setInFlight(m_atOnce);
    const auto done = qScopeGuard([this] {
        m_adapter->setInFlight(1);
        exportRuns = false;
    });

    const QList<QPersistentModelIndex> screens = screensOf(project, rows);
    std::deque<SAsked> asked;
    int next = 0;
    const auto askUpTo = [&](int count) {
        for (; static_cast<int>(asked.size()) < count && next < screens.size(); ++next) {
            asked.push_back({screens[next], nullptr, {}});
            ask(asked.back(), project, content);
        }
    };
    for (int i = 0; i < screens.size(); ++i) {
        if (m_progress && !m_progress(i, screens.size()))
            return EResult::Cancelled;
        askUpTo(m_atOnce);
        SAsked current = std::move(asked.front());
        asked.pop_front();
        const EAnswer answer = waitForAnswer(current, content);
        if (answer == EAnswer::Cancelled)
            return EResult::Cancelled;
        if (!current.screen.isValid())
            continue;
        if (answer == EAnswer::None) {
            current.render->giveUp();
            if (m_report)
                m_report(QCoreApplication::translate(
                    "CProjectExporter", "An error occurred during the export process"));
            if (m_restart) {
                m_restart();
                for (SAsked &each : asked)
                    ask(each, project, content);
            }
            continue;
        }
        if (m_atOnce > 1)
            askUpTo(m_atOnce); // drawn while this one is worked on here
        handOut(current, take);
    }
    return EResult::Written;
}

void CProjectExporter::ask(SAsked &asked, CProjectModel *project, EContent content) const
{
    if (!asked.screen.isValid())
        return;
    if (!asked.render)
        asked.render = std::make_unique<CBackgroundRender>(m_adapter, project);
    asked.render->ask(asked.screen);
    if (content == EContent::DisplayListsAndFrames)
        asked.items = exportedItems(*screenOf(asked.screen));
}

CProjectExporter::EAnswer CProjectExporter::waitForAnswer(const SAsked &asked, EContent content)
{
    const auto slowStep = UsualPatience / WaitStepTime;
    for (auto step = 0; step < m_patience / WaitStepTime && asked.screen.isValid(); ++step) {
        const CBackgroundRender &render = *asked.render;
        if (render.hasDisplayList() && (content == EContent::DisplayLists || render.hasFrame()))
            return EAnswer::Complete;
        if (step == slowStep && m_slow)
            m_slow(screenOf(asked.screen)->name());
        const bool goesOn = m_waitStep ? m_waitStep() : waitStep(render);
        if (!goesOn || (m_isCancelled && m_isCancelled()))
            return EAnswer::Cancelled;
    }
    return EAnswer::None;
}

/// False when the program is about to end.
bool CProjectExporter::waitStep(const CBackgroundRender &render)
{
    QEventLoop loop;
    QTimer limit;
    limit.setSingleShot(true);
    limit.setTimerType(Qt::PreciseTimer);
    QObject::connect(&limit, &QTimer::timeout, &loop, [&] {
        ++m_idleSteps;
        loop.quit();
    });
    QObject::connect(&render, &CBackgroundRender::changed, &loop, &QEventLoop::quit);
    limit.start(WaitStepTime);
    return loop.exec() >= 0;
}

void CProjectExporter::handOut(SAsked &asked,
                               const std::function<void(SScreenExport &&)> &take) const
{
    CScreenModel *screen = screenOf(asked.screen);
    SScreenExport page = screenAnswer(*screen, *asked.render, asked.items);
    asked.render.reset();
    if (m_findings && !page.errors.isEmpty())
        m_findings(page.name, page.errors.join(QLatin1Char('\n')));
    take(std::move(page));
}

std::optional<QList<SScreenExport>> CProjectExporter::collect(CProjectModel *project,
                                                              EContent content)
{
    QList<SScreenExport> screens;
    const EResult result = render(project, content, nullptr,
                                  [&screens](SScreenExport &&screen) { screens.append(screen); });
    return result == EResult::Written ? std::optional(screens) : std::nullopt;
}

CProjectExporter::EResult CProjectExporter::exportProjectDL(CProjectModel *project,
                                                            const QString &path, QString *error)
{
    const auto form = [](const SScreenExport &screen) {
        return textForm(screen.name, screen.text);
    };
    return exportProject(project, path, form, error);
}

CProjectExporter::EResult CProjectExporter::exportProjectBin(CProjectModel *project,
                                                             const QString &path, QString *error)
{
    const auto form = [](const SScreenExport &screen) { return screen.bytes; };
    return exportProject(project, path, form, error);
}

CProjectExporter::EResult
CProjectExporter::exportProject(CProjectModel *project, const QString &path,
                                const std::function<QByteArray(const SScreenExport &)> &form,
                                QString *error)
{
    QString reason = whyNotOpened(path);
    EResult result = EResult::NotOpened;
    if (reason.isEmpty()) {
        QByteArray content;
        result = render(project, EContent::DisplayLists, nullptr,
                        [&](SScreenExport &&screen) { content += form(screen); });
        if (result != EResult::Written)
            return result;
        reason = CFileWriter::write(path, content);
        if (!reason.isEmpty())
            result = EResult::NotWritten;
    }
    if (error)
        *error = reason;
    return result;
}

QString CProjectExporter::oneLine(QString text)
{
    const auto breaksLine = [](QChar c) {
        return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
               c.category() == QChar::Separator_Paragraph;
    };
    std::replace_if(text.begin(), text.end(), breaksLine, QLatin1Char(' '));
    return text;
}

QByteArray CProjectExporter::textForm(const QString &screenName, const QString &dlText)
{
    return (QStringLiteral("===") + oneLine(screenName) + QStringLiteral("===\n") + dlText +
            QLatin1Char('\n'))
        .toUtf8();
}
