#include "CCompareActions.h"

#include "BackgroundWork.h"
#include "CCompareView.h"
#include "CComparison.h"
#include "CItemModel.h"
#include "CMainPanels.h"
#include "CMenuBar.h"
#include "CProjectFile.h"
#include "CProjectModel.h"
#include "CXmlGuard.h"
#include "ShownText.h"

#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>

#include <utility>

namespace {
constexpr int LeastHeight = 280; ///< pixels, for a picture in which something is seen
}

CCompareActions::CCompareActions(QMainWindow *window, CMainPanels *panels, const CMenuBar &menus,
                                 std::function<QString()> path)
    : QObject(window),
      m_window(window),
      m_path(std::move(path)),
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

void CCompareActions::choose()
{
    using EKind = CVersionDialog::EKind;
    const QString path = m_path();
    QVector<CVersionDialog::SChoice> offered;
    if (QFileInfo::exists(path)) {
        if (CProjectFile(path).savedVersion()) {
            offered.append({EKind::Saved, tr("The version that you saved last"), {}});
            offered.append({EKind::Automatic, tr("The version that was saved automatically"), {}});
        } else {
            offered.append({EKind::Automatic, tr("The last saved version"), {}});
        }
    }
    const int question = ++m_question;
    const QPointer<CCompareActions> self(this);
    CVersionDialog dialog(offered, path, m_window);
    // The project, or all, may have been closed meanwhile.
    if (dialog.exec() != QDialog::Accepted || !self || question != m_question)
        return;
    CVersionDialog::SChoice choice = dialog.choice();
    QString file = path;
    if (choice.kind == EKind::File) {
        file = QFileDialog::getOpenFileName(
            m_window, tr("Compare With"), QFileInfo(path).absolutePath(),
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
    if (kind == CVersionDialog::EKind::Saved) {
        if (const auto bytes = CProjectFile(file).savedVersion())
            return {*bytes, {}};
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
