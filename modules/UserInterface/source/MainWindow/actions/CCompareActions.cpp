#include "CCompareActions.h"

#include "BackgroundWork.h"
#include "CCompareView.h"
#include "CComparison.h"
#include "CItemModel.h"
#include "CMainPanels.h"
#include "CMenuBar.h"
#include "CProjectFile.h"
#include "CProjectModel.h"
#include "CRecoveryCopy.h"
#include "CXmlGuard.h"
#include "ShownText.h"

#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>

#include <utility>

namespace {
constexpr int LeastHeight = 280; ///< pixels, for a picture in which something is seen

QString dateOf(const QDateTime &time)
{
    return QLocale().toString(time, QLocale::ShortFormat);
}
} // namespace

CCompareActions::CCompareActions(QMainWindow *window, CMainPanels *panels, const CMenuBar &menus,
                                 std::function<SPlaces()> places)
    : QObject(window),
      m_window(window),
      m_places(std::move(places)),
      m_comparison(new CComparison(this)),
      m_view(new CCompareView(m_comparison)),
      m_dock(new QDockWidget(window)),
      m_action(new QAction(window)),
      m_panels(panels)
{
    m_dock->setObjectName(QStringLiteral("compare"));
    m_dock->setWidget(m_view);
    window->addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    window->tabifyDockWidget(panels->outputDock(), m_dock);
    m_dock->hide();
    m_dock->toggleViewAction()->setObjectName(QStringLiteral("compareWindow"));
    menus.menu(CMenuBar::WindowsMenu)->addAction(m_dock->toggleViewAction());
    m_action->setObjectName(QStringLiteral("compareWith"));
    QMenu *file = menus.menu(CMenuBar::FileMenu);
    const auto entries = file->actions();
    const int revert = entries.indexOf(menus.action(CMenuBar::Revert));
    file->insertAction(entries.value(revert + 1), m_action);

    m_comparison->setBusy([panels] { return panels->isGestureActive() || panels->isEditorOpen(); });
    connect(m_action, &QAction::triggered, this, &CCompareActions::choose);
    connect(m_view, &CCompareView::placeWanted, panels, &CMainPanels::goTo);
    connect(m_comparison, &CComparison::failed, this, &CCompareActions::fail);
    connect(m_dock, &QDockWidget::visibilityChanged, m_comparison, &CComparison::setWanted);
    setProject(nullptr);
    retranslate();
}

void CCompareActions::setProject(CProjectModel *project)
{
    ++m_question;
    m_comparison->setProject(project);
    m_action->setEnabled(project != nullptr);
}

QVector<CVersionDialog::SChoice> CCompareActions::keptOf(const SPlaces &places)
{
    using EKind = CVersionDialog::EKind;
    QVector<CVersionDialog::SChoice> kept;
    const auto dated = [](const QString &title, const QString &file) {
        return tr("%1, %2").arg(title, dateOf(QFileInfo(file).lastModified()));
    };
    const CProjectFile file(places.file);
    if (!places.file.isEmpty() && QFileInfo::exists(places.file)) {
        if (file.savedVersion()) {
            kept.append({EKind::Saved, tr("The version that you saved last"), {}});
            kept.append({EKind::Automatic,
                         dated(tr("The version that was saved automatically"), places.file),
                         {}});
        } else {
            kept.append({EKind::Automatic, dated(tr("The last saved version"), places.file), {}});
        }
        if (file.leftBackup())
            kept.append({EKind::Backup,
                         dated(tr("A backup that was left beside the file"), file.backupPath()),
                         {}});
    }
    if (!places.copy.isEmpty())
        kept.append({EKind::Copy, dated(tr("The recovery copy of this project"), places.copy),
                     places.copy});
    return kept;
}

/// Those of other projects too: one that was called otherwise, or copied, may be what is looked
/// for.
void CCompareActions::addLeft(CVersionDialog *dialog, const SPlaces &places)
{
    BackgroundWork::run(
        dialog, [root = places.left] { return CRecoveryCopy::left(root); },
        [dialog](const QVector<CRecoveryCopy::SLeft> &left) {
            for (const CRecoveryCopy::SLeft &each : left)
                dialog->add(
                    {CVersionDialog::EKind::Copy,
                     tr("Work that was left: %1, %2").arg(each.projectName, dateOf(each.written)),
                     each.file});
        });
}

void CCompareActions::choose()
{
    using EKind = CVersionDialog::EKind;
    const SPlaces places = m_places();
    const int question = ++m_question;
    const QPointer<CCompareActions> self(this);
    CVersionDialog dialog(keptOf(places), places.file, m_window);
    addLeft(&dialog, places);
    // The project, or all, may have been closed meanwhile.
    if (dialog.exec() != QDialog::Accepted || !self || question != m_question)
        return;
    CVersionDialog::SChoice choice = dialog.choice();
    QString file = choice.kind == EKind::Copy ? choice.id : places.file;
    if (choice.kind == EKind::File) {
        file = QFileDialog::getOpenFileName(
            m_window, tr("Compare With"), QFileInfo(places.file).absolutePath(),
            tr("Projects (*.nyx *.xml);;All files (*)"), nullptr, QFileDialog::DontUseNativeDialog);
        if (file.isEmpty() || !self || question != m_question)
            return;
        choice.title = file;
    }
    compareWith(choice, file);
}

void CCompareActions::compareWith(const CVersionDialog::SChoice &choice, const QString &file)
{
    const int question = ++m_question;
    const auto isCurrent = [this, question] { return question == m_question; };
    delete std::exchange(m_git, nullptr);
    if (choice.kind == CVersionDialog::EKind::Git) {
        m_git = new CGitVersions(file, this);
        connect(m_git, &CGitVersions::fetched, this,
                [this, isCurrent, title = choice.title](const QByteArray &bytes) {
                    if (isCurrent())
                        take(bytes, title);
                });
        connect(m_git, &CGitVersions::failed, this, [this, isCurrent](const QString &reason) {
            if (isCurrent())
                fail(reason);
        });
        m_git->fetch(choice.id);
        return;
    }
    BackgroundWork::run(
        this, [kind = choice.kind, file] { return readVersion(kind, file); },
        [this, isCurrent, title = choice.title](const SRead &read) {
            if (!isCurrent())
                return;
            if (read.error.isEmpty())
                take(read.bytes, title);
            else
                fail(read.error);
        });
}

CCompareActions::SRead CCompareActions::readVersion(CVersionDialog::EKind kind, const QString &file)
{
    SRead result;
    const CProjectFile kept(file);
    if (kind == CVersionDialog::EKind::Saved || kind == CVersionDialog::EKind::Backup) {
        const bool isSaved = kind == CVersionDialog::EKind::Saved;
        const auto bytes = isSaved ? kept.savedVersion() : kept.leftBackup();
        return {bytes.value_or(QByteArray()),
                bytes ? QString() : tr("That version is there no more.")};
    }
    const auto bytes = CXmlGuard::readFile(file, &result.error);
    result.bytes = bytes.value_or(QByteArray());
    return result;
}

/// The dock shows at once that something is being done.
void CCompareActions::take(const QByteArray &bytes, const QString &title)
{
    m_dock->show();
    m_dock->raise();
    if (m_view->height() < LeastHeight)
        m_window->resizeDocks({m_dock}, {LeastHeight}, Qt::Vertical);
    m_comparison->compareWith(bytes, title);
}

void CCompareActions::fail(const QString &reason)
{
    m_panels->report(tr("The project was not compared: %1").arg(ShownText::message(reason)));
}

void CCompareActions::retranslate()
{
    m_dock->setWindowTitle(tr("Compare"));
    m_action->setText(tr("Compare &With..."));
    m_action->setStatusTip(tr("Show what has changed since an earlier version"));
}
