#include "CProjectExporter.h"

#include "CBackgroundRender.h"
#include "CEmulatorAdapter.h"
#include "CFileWriter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ChipFindings.h"
#include "ItemOutline.h"

#include <QCoreApplication>
#include <QPersistentModelIndex>
#include <QScopeGuard>
#include <QThread>

#include <algorithm>
#include <utility>

namespace {

bool collectionRuns = false; // there is one emulator, and waiting turns the event loop

QList<QPersistentModelIndex> screensOf(const CProjectModel *project, const QList<int> *rows)
{
    QList<QPersistentModelIndex> screens;
    for (int row = 0; row < project->rowCount(); ++row)
        if (project->screen(row) && (!rows || rows->contains(row)))
            screens.append(project->index(row, 0));
    return screens;
}

void addItems(const CItemModel &parent, QList<SExportedItem> &items)
{
    const QString group = parent.kind() == CItemModel::Kind::Group ? parent.name() : QString();
    for (int row = 0; row < parent.rowCount(); ++row) {
        const CItemModel *item = parent.childItem(row);
        if (!item)
            continue;
        if (item->kind() == CItemModel::Kind::Widget) {
            const SItemOutline outline = itemOutline(*item);
            items.append({item->name(), item->itemTypeName(), item->idString(), item->id(), group,
                          outline.box, outline.turn});
        }
        addItems(*item, items);
    }
}

QList<SExportedItem> exportedItems(const CItemModel &screen)
{
    QList<SExportedItem> items;
    addItems(screen, items);
    return items;
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

void processAndSleep()
{
    QCoreApplication::processEvents();
    QThread::msleep(CProjectExporter::WaitStepTime);
}

} // namespace

CProjectExporter::CProjectExporter(CEmulatorAdapter *adapter)
    : m_adapter(adapter), m_waitStep(processAndSleep)
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

void CProjectExporter::setWaitStep(std::function<void()> step)
{
    m_waitStep = std::move(step);
}

std::optional<QList<SScreenExport>>
CProjectExporter::collect(CProjectModel *project, EContent content, const QList<int> *rows)
{
    QList<SScreenExport> collected;
    if (!project)
        return collected;
    if (collectionRuns)
        return std::nullopt;
    collectionRuns = true;
    const auto done = qScopeGuard([] { collectionRuns = false; });

    // The indexes become invalid when a screen, or the project, goes while events are processed.
    const QList<QPersistentModelIndex> screens = screensOf(project, rows);
    CBackgroundRender render(m_adapter, project);
    for (int i = 0; i < screens.size(); ++i) {
        if (m_progress && !m_progress(i, screens.size())) {
            m_cancelled = true;
            return std::nullopt;
        }
        const QPersistentModelIndex &screen = screens[i];
        if (!screen.isValid())
            continue;
        render.ask(screen);
        const QList<SExportedItem> items = content == EContent::DisplayLists
                                               ? QList<SExportedItem>()
                                               : exportedItems(*project->screen(screen.row()));
        if (waitForAnswer(render, screen, content)) {
            CScreenModel *item = project->screen(screen.row());
            collected.append({item, item->name(), render.text(), render.bytes(), render.frame(),
                              render.ramDl(), render.ramG(), render.errors() + chipFindings(*item),
                              render.memory(), items});
            const QStringList &errors = collected.last().errors;
            if (m_findings && !errors.isEmpty())
                m_findings(item->name(), errors.join(QLatin1Char('\n')));
            continue;
        }
        render.giveUp();
        if (screen.isValid() && m_report)
            m_report(QCoreApplication::translate("CProjectExporter",
                                                 "An error occurred during the export process"));
    }
    return collected;
}

bool CProjectExporter::waitForAnswer(const CBackgroundRender &render,
                                     const QPersistentModelIndex &screen, EContent content) const
{
    for (int step = 0; step < MaxWaitSteps && screen.isValid(); ++step) {
        if (render.hasDisplayList() && (content == EContent::DisplayLists || render.hasFrame()))
            return true;
        m_waitStep();
    }
    return false;
}

CProjectExporter::EResult CProjectExporter::exportProjectDL(CProjectModel *project,
                                                            const QString &path, QString *error)
{
    return exportProject(project, path, &CProjectExporter::textForm, error);
}

CProjectExporter::EResult CProjectExporter::exportProjectBin(CProjectModel *project,
                                                             const QString &path, QString *error)
{
    return exportProject(project, path, &CProjectExporter::binaryForm, error);
}

CProjectExporter::EResult
CProjectExporter::exportProject(CProjectModel *project, const QString &path,
                                QByteArray (*form)(const QList<SScreenExport> &), QString *error)
{
    QString reason = whyNotOpened(path);
    EResult result = EResult::NotOpened;
    if (reason.isEmpty()) {
        m_cancelled = false;
        const auto screens = collect(project, EContent::DisplayLists);
        if (!screens)
            return m_cancelled ? EResult::Cancelled : EResult::Refused;
        reason = CFileWriter::write(path, form(*screens));
        result = reason.isEmpty() ? EResult::Written : EResult::NotWritten;
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

QByteArray CProjectExporter::textForm(const QList<SScreenExport> &screens)
{
    QByteArray form;
    for (const SScreenExport &screen : screens)
        form += textForm(screen.name, screen.text);
    return form;
}

QByteArray CProjectExporter::binaryForm(const QList<SScreenExport> &screens)
{
    QByteArray form;
    for (const SScreenExport &screen : screens)
        form += screen.bytes;
    return form;
}
