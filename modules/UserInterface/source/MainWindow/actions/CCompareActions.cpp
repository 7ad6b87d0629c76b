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
#include <QDir>
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

QString dated(const QString &title, const QString &file)
{
    return CCompareActions::tr("%1, %2").arg(title, dateOf(QFileInfo(file).lastModified()));
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
    connect(m_comparison, &CComparison::changed, this, &CCompareActions::noteTaken);
    connect(m_dock, &QDockWidget::visibilityChanged, this, &CCompareActions::setVisible);
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
    const CProjectFile file(places.file);
    if (!places.file.isEmpty() && QFileInfo::exists(places.file)) {
        kept.append({EKind::Saved, titleOfSaved(file), {}});
        if (file.savedVersion())
            kept.append({EKind::Automatic,
                         dated(tr("The version that was saved automatically"), places.file),
                         {}});
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

/// With the time when it is known: that of the file, unless this holds what came after it.
QString CCompareActions::titleOfSaved(const CProjectFile &file)
{
    return file.savedVersion() ? tr("The version that you saved last")
                               : dated(tr("The last saved version"), file.path());
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
    const bool isAccepted = dialog.exec() == QDialog::Accepted;
    if (!self || question != m_question)
        return;
    if (!isAccepted) {
        follow(); // the question has put it off
        return;
    }
    CVersionDialog::SChoice choice = dialog.choice();
    QString file = choice.kind == EKind::Copy ? choice.id : places.file;
    if (choice.kind == EKind::File) {
        file = QFileDialog::getOpenFileName(
            m_window, tr("Compare With"), QFileInfo(places.file).absolutePath(),
            tr("Projects (*.nyx *.xml);;All files (*)"), nullptr, QFileDialog::DontUseNativeDialog);
        if (file.isEmpty() || !self || question != m_question)
            return;
        choice.title = dated(QDir::toNativeSeparators(file), file);
    }
    compareWith(choice, file);
}

void CCompareActions::compareWith(const CVersionDialog::SChoice &choice, const QString &file)
{
    if (choice.kind == CVersionDialog::EKind::Git)
        fetch(choice.id, file, choice.title);
    else
        read(choice, file, true);
}

void CCompareActions::fetch(const QString &id, const QString &file, const QString &title)
{
    const int question = ++m_question;
    delete std::exchange(m_git, nullptr);
    m_git = new CGitVersions(file, this);
    connect(m_git, &CGitVersions::fetched, this, [this, question, title](const QByteArray &bytes) {
        if (question != m_question)
            return;
        showDock();
        m_asked = {};
        m_comparison->compareWith(bytes, title);
    });
    connect(m_git, &CGitVersions::failed, this, [this, question](const QString &reason) {
        if (question == m_question)
            m_comparison->refuse(reason);
    });
    m_git->fetch(id);
}

/// The dock shows at once that something is being done. What nobody has asked for shows no dock.
void CCompareActions::read(const CVersionDialog::SChoice &choice, const QString &file, bool isAsked)
{
    const int question = ++m_question;
    const STaken asked{choice.kind == CVersionDialog::EKind::Saved, m_saves};
    delete std::exchange(m_git, nullptr);
    BackgroundWork::run(
        this, [choice, file] { return readVersion(choice, file); },
        [this, question, asked, isAsked](const SRead &read) {
            if (question != m_question || (!isAsked && !m_comparison->isWanted()))
                return;
            if (!read.error.isEmpty()) {
                m_comparison->refuse(read.error);
                return;
            }
            if (isAsked)
                showDock();
            m_asked = asked;
            m_comparison->compareWith(read.bytes, read.title);
        });
}

CCompareActions::SRead CCompareActions::readVersion(const CVersionDialog::SChoice &choice,
                                                    const QString &file)
{
    using EKind = CVersionDialog::EKind;
    SRead result{{}, choice.title, {}};
    const CProjectFile kept(file);
    std::optional<QByteArray> bytes;
    if (choice.kind == EKind::Saved) {
        result.title = titleOfSaved(kept);
        bytes = kept.savedVersion();
    } else if (choice.kind == EKind::Backup) {
        bytes = kept.leftBackup();
        if (!bytes)
            result.error =
                choice.title + QStringLiteral(": ") + tr("That version is there no more.");
    }
    if (!bytes && result.error.isEmpty())
        bytes = CXmlGuard::readFile(file, &result.error);
    result.bytes = bytes.value_or(QByteArray());
    return result;
}

void CCompareActions::followSave()
{
    ++m_saves;
    follow();
}

void CCompareActions::noteTaken()
{
    const CProjectModel *earlier = m_comparison->earlier();
    if (std::exchange(m_earlier, earlier) == earlier) // in between it is null
        return;
    m_compared = earlier ? m_asked : STaken();
    follow();
}

/// What was saved automatically, a backup, a file and a version in git stay what their titles say.
void CCompareActions::follow()
{
    if (m_compared.isSaved && m_compared.saves != m_saves && m_comparison->isWanted() &&
        !m_comparison->isReading())
        read({CVersionDialog::EKind::Saved, {}, {}}, m_places().file, false);
}

void CCompareActions::setVisible(bool isVisible)
{
    m_comparison->setWanted(isVisible);
    follow();
}

void CCompareActions::showDock()
{
    m_dock->show();
    m_dock->raise();
    if (m_view->height() < LeastHeight)
        m_window->resizeDocks({m_dock}, {LeastHeight}, Qt::Vertical);
}

/// The dock says so, above what was compared before.
void CCompareActions::fail(const QString &reason)
{
    showDock();
    m_panels->report(tr("The project was not compared: %1").arg(ShownText::message(reason)));
}

void CCompareActions::retranslate()
{
    m_dock->setWindowTitle(tr("Compare"));
    m_action->setText(tr("Compare &With..."));
    m_action->setStatusTip(tr("Show what has changed since an earlier version"));
}
