#include "CExportController.h"

#include "CEmulatorAdapter.h"
#include "CFileWriter.h"
#include "CFolderDialog.h"
#include "CPackageBuilder.h"
#include "CProjectModel.h"
#include "IUserQuestions.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QPointer>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

#include <memory>

namespace {
constexpr int ProgressDelay = 500;  // ms; short exports show nothing
constexpr int LongestRender = 2000; // ms that a render of the canvas is waited for
constexpr int WaitStepTime = 20;    // ms; the longest time between two looks at Cancel
constexpr int LongestEnd = 500;     // ms that the end of the program waits for a package

/// Shared with the thread that works on it, which may be left behind.
struct SPacking
{
    explicit SPacking(const SPackageSource &source) : builder(source) {}
    CPackageBuilder builder;
    QString reason;
};
} // namespace

CExportController::CExportController(QWidget *window, CEmulatorAdapter *adapter,
                                     IUserQuestions *user)
    : QObject(window), m_window(window), m_adapter(adapter), m_user(user)
{
}

QString CExportController::askPath(const SDialogTexts &texts, const QString &folder) const
{
    QFileDialog dialog(m_window, texts.title, folder, texts.filter);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setViewMode(QFileDialog::Detail);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(texts.suffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void CExportController::exportProjectDL(CProjectModel *project, const QString &folder)
{
    const QPointer<CProjectModel> still(project); // the dialog turns the event loop
    const QString path = askPath(
        {tr("Export project to DL"), tr("Display Lists (*.dl)"), QStringLiteral("dl")}, folder);
    exportProject(still, path, &CProjectExporter::exportProjectDL);
}

void CExportController::exportProjectBin(CProjectModel *project, const QString &folder)
{
    const QPointer<CProjectModel> still(project);
    const QString path = askPath(
        {tr("Export project to binary"), tr("Display Lists Binary(*.bin)"), QStringLiteral("bin")},
        folder);
    exportProject(still, path, &CProjectExporter::exportProjectBin);
}

void CExportController::exportPackage(CProjectModel *project, const QString &folder)
{
    const QPointer<CProjectModel> still(project);
    CFolderDialog dialog(m_window, tr("Export package into a folder"), folder, tr("Export"));
    exportProject(still, dialog.ask(),
                  [this](CProjectExporter *exporter, CProjectModel *pages, const QString &path,
                         QString *reason) { return writePackage(exporter, pages, path, reason); });
}

/// Packing and writing take a while for large projects, so another thread does it.
CProjectExporter::EResult CExportController::writePackage(CProjectExporter *exporter,
                                                          CProjectModel *project,
                                                          const QString &folder,
                                                          QString *reason) const
{
    if (!project)
        return CProjectExporter::EResult::Cancelled;
    const QPointer<CProjectModel> still(project);
    const auto packing = std::make_shared<SPacking>(packageSource(*project));
    int pages = 0;
    const auto result = exporter->render(project, CProjectExporter::EContent::DisplayListsAndFrames,
                                         nullptr, [&](SScreenExport &&page) {
                                             packing->builder.add(page);
                                             ++pages;
                                         });
    if (result != CProjectExporter::EResult::Written)
        return result;
    if (!still)
        return CProjectExporter::EResult::Cancelled;
    if (pages != project->screenCount()) {
        *reason = tr("Not all pages could be drawn.");
        return CProjectExporter::EResult::NotWritten;
    }
    std::unique_ptr<QThread> thread(QThread::create([packing, folder] {
        packing->reason = packing->builder.finish()
                              ? writePackageFiles(folder, packing->builder.package())
                              : packing->builder.problems().join(QLatin1Char('\n'));
    }));
    QEventLoop loop;
    connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    // When the program is to end, a disk that does not answer must not keep it.
    if (!thread->wait(LongestEnd)) {
        static_cast<void>(thread.release()); // it runs on
        m_adapter->noteLeftBehind();
        return CProjectExporter::EResult::Cancelled;
    }
    *reason = packing->reason;
    return reason->isEmpty() ? CProjectExporter::EResult::Written
                             : CProjectExporter::EResult::NotWritten;
}

bool CExportController::drawHidden(SShownScreen *shown, CProjectModel *project, int row)
{
    if (m_isRunning)
        return false;
    m_isRunning = true;
    m_isCancelled = false;
    bool isDrawn = false;
    waitForEmulator();
    CProjectExporter exporter(m_adapter);
    exporter.setErrorReport([this](const QString &text) { m_user->showError(text, QString()); });
    exporter.setCancelled([this] { return m_isCancelled; });
    const QList<int> rows = {row};
    exporter.render(project, CProjectExporter::EContent::DisplayLists, &rows,
                    [&](SScreenExport &&page) {
                        shown->text = page.text;
                        shown->bytes = page.bytes;
                        shown->findings = page.errors.join(QLatin1Char('\n'));
                        isDrawn = true;
                    });
    m_isRunning = false;
    Q_EMIT finished();
    return isDrawn;
}

void CExportController::exportScreenDL(const SShownScreen &screen, const QString &folder)
{
    const QString path = askPath(
        {tr("Export screen to DL"), tr("Display Lists (*.dl)"), QStringLiteral("dl")}, folder);
    writeScreen(path, screen, CProjectExporter::textForm(screen.name, screen.text));
}

void CExportController::exportScreenBin(const SShownScreen &screen, const QString &folder)
{
    const QString path = askPath(
        {tr("Export Page to binary"), tr("Display Lists Binary(*.bin)"), QStringLiteral("bin")},
        folder);
    writeScreen(path, screen, screen.bytes);
}

void CExportController::exportProject(CProjectModel *project, const QString &path,
                                      const Export &form)
{
    if (path.isEmpty() || m_isRunning)
        return;
    m_isRunning = true;
    m_isCancelled = false;
    QProgressDialog progress(tr("Exporting the pages"), tr("Cancel"), 0, 0, m_window);
    progress.setWindowModality(Qt::NonModal);
    progress.setMinimumDuration(ProgressDelay);
    progress.setAutoReset(false);
    CProjectExporter exporter(m_adapter);
    exporter.setErrorReport([this](const QString &text) { m_user->showError(text, QString()); });
    bool hasFindings = false;
    exporter.setFindings([&](const QString &screen, const QString &errors) {
        hasFindings = true;
        Q_EMIT findings(screen, errors);
    });
    exporter.setProgress([&](int done, int total) {
        progress.setMaximum(total);
        progress.setValue(done);
        progress.setLabelText(tr("Exporting page %1 of %2").arg(done + 1).arg(total));
        waitForEmulator();
        return !m_isCancelled && !progress.wasCanceled();
    });
    exporter.setCancelled([&] { return m_isCancelled || progress.wasCanceled(); });

    QString reason;
    switch (form(&exporter, project, path, &reason)) {
    case CProjectExporter::EResult::Written:
        tellExported(path, hasFindings);
        break;
    case CProjectExporter::EResult::NotOpened:
        m_user->showNotice(reason);
        break;
    case CProjectExporter::EResult::NotWritten:
        m_user->showError(tr("An error occurred during the export process"), reason);
        break;
    case CProjectExporter::EResult::Cancelled:
        m_user->showNotice(tr("The export was cancelled."));
        break;
    case CProjectExporter::EResult::Refused:
        break;
    }
    m_isRunning = false;
    Q_EMIT finished();
}

/// A page that is asked for while the canvas or a thumbnail is drawn would get no answer.
void CExportController::waitForEmulator() const
{
    const QDeadlineTimer deadline(LongestRender);
    QEventLoop loop;
    QTimer step;
    connect(&step, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(m_adapter, &CEmulatorAdapter::emulatorFrameCallback, &loop, &QEventLoop::quit,
            Qt::QueuedConnection); // then it is idle
    step.start(WaitStepTime);
    while (m_adapter->isBusy() && !m_isCancelled && !deadline.hasExpired() && loop.exec() >= 0) {
    }
}

void CExportController::writeScreen(const QString &path, const SShownScreen &screen,
                                    const QByteArray &bytes)
{
    if (path.isEmpty())
        return;
    const QString reason = CFileWriter::write(path, bytes);
    if (!reason.isEmpty()) {
        m_user->showNotice(reason);
        return;
    }
    if (!screen.findings.isEmpty())
        Q_EMIT findings(screen.name, screen.findings);
    tellExported(path, !screen.findings.isEmpty());
}

void CExportController::tellExported(const QString &path, bool hasFindings)
{
    const QString shown = QDir::toNativeSeparators(path);
    m_user->showNotice(
        hasFindings
            ? tr("Exported to %1; see the messages above it: not all is as designed").arg(shown)
            : tr("Exported to %1").arg(shown));
}
