#include "CMainWindow.h"

#include "CActionCentre.h"
#include "CAutosaveTimer.h"
#include "CAutosaver.h"
#include "CDialogQuestions.h"
#include "CEditCommands.h"
#include "CEditorState.h"
#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CErrorBox.h"
#include "CExportCommands.h"
#include "CExportController.h"
#include "CLanguageLoader.h"
#include "CMainPanels.h"
#include "CMenuBar.h"
#include "CMenuSubjects.h"
#include "COptionDialog.h"
#include "CPlainToolTips.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CProjectOpener.h"
#include "CProjectSession.h"
#include "CReadingNotice.h"
#include "CRecentProjects.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenRounds.h"
#include "CScreenView.h"
#include "CSettings.h"
#include "CStartMark.h"
#include "CStartScreen.h"
#include "CStatusBar.h"
#include "CThemeIcons.h"
#include "CUpdater.h"
#include "CViewMemory.h"
#include "CWindowPlacement.h"
#include "CZoomComboWidget.h"
#include "CZoomCommands.h"
#include "ProgramInfo.h"
#include "ShownText.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTimer>
#include <QUndoGroup>

namespace {
constexpr QSize FirstSize(1440, 900);
constexpr int SavedTime = 5000; // ms, for which a save is told of

/// Frame and all on a screen, as far as the frame is known before the window is shown.
QRect placed(const QRect &wanted, const QWidget &window)
{
    return CWindowPlacement::placed(wanted, CWindowPlacement::likelyFrame(window),
                                    CWindowPlacement::screensOf(window));
}
} // namespace

CMainWindow::CMainWindow(const QString &file)
    : m_folder(QDir::currentPath()),
      m_theme(this),
      m_errorMessage(new CErrorBox(this)),
      m_aboutBox(new QMessageBox(this)),
      m_undoGroup(new QUndoGroup(this)),
      m_recent(new CRecentProjects(this)),
      m_settings(std::make_unique<CSettings>(m_folder)),
      m_user(std::make_unique<CDialogQuestions>(this, m_errorMessage, &m_platforms)),
      m_languages(std::make_unique<CLanguageLoader>(m_folder))
{
    m_theme.apply(CTheme::Kind::Dark); // what is made from here on is made for a theme at once
    resize(placed({QPoint(), FirstSize}, *this).size());
    new CWindowPlacement(this);
    new CPlainToolTips(this);
    const SSettings settings = readSettings();
    startSubsystems();
    m_panels = new CMainPanels(this);
    m_edit = std::make_unique<CEditCommands>(this, m_panels);
    makeProjectParts();
    m_menuBar = new CMenuBar(this);
    m_zoom = std::make_unique<CZoomCommands>(m_panels, m_menuBar);
    connect(m_panels, &CMainPanels::zoomWanted, this,
            [this](const QVector<CItemModel *> &items) { m_zoom->to(items); });
    m_subjects = std::make_unique<CMenuSubjects>(this, m_panels, m_menuBar);
    connect(m_panels->screens(), &CScreen::menuAboutToShow, m_menuBar, &CMenuBar::complete);
    m_edit->watchKeysOf(*m_menuBar);
    m_centre = new CActionCentre(this, m_panels); // after whoever adds to the menus
    m_viewMemory = new CViewMemory(m_panels);
    connect(m_viewMemory, &CViewMemory::zoomWanted, m_menuBar->zoomWidget(),
            &CZoomComboWidget::setZoom);
    m_panels->addDeselectAction(m_menuBar->action(CMenuBar::SelectNone));
    makeOptionDialog();
    connectSession();
    useSettings(settings);
    m_statusBar = new CStatusBar(this);
    m_panels->connectStatusBar(m_statusBar);
    statusBar()->setVisible(settings.statusBar);
    setWindowIcon(CThemeIcons::icon(QStringLiteral(":/images/icon.png")));
    showWindowToggles();
    m_updater = new CUpdater(ProgramInfo::Version, this);
    m_updater->check(CUpdater::EMode::Silent);
    m_menuBar->action(CMenuBar::Updates)->setEnabled(m_updater->isConfigured());
    if (QFile::exists(file))
        m_session->open(file);
    if (project() &&
        !m_session->leftWork().isEmpty()) // the start page, which offers it, is not seen
        m_user->showNotice(
            tr("Unsaved work of a session that ended unexpectedly is kept. The start "
               "page offers it: close the project to see it."));
}

CMainWindow::~CMainWindow()
{
    if (project())
        closeUnattended();
    // The docks go after this object's members and report that they are hidden on their way.
    for (QDockWidget *dock : findChildren<QDockWidget *>())
        dock->toggleViewAction()->disconnect(m_menuBar);
}

void CMainWindow::startSubsystems()
{
    const CProgramData programData(m_folder);
    const QString noLibrary = programData.loadWidgetLibrary();
    if (!noLibrary.isEmpty())
        m_user->showError(tr("Could not initialise Widget Library Manager"), noLibrary);
    CEmulatorAdapter *const adapter = CEmulatorAdapter::instance();
    const QString noEmulator = programData.registerEmulator();
    if (!noEmulator.isEmpty())
        m_user->showError(tr("Could not initialise emulator"), noEmulator);
    m_emulator = std::make_unique<CEmulatorSession>(adapter);
    connect(this, &CMainWindow::configChanged, adapter, &CEmulatorAdapter::emulatorConfigScreen);
}

void CMainWindow::makeProjectParts()
{
    m_user->setReport([this](const QString &text) { m_panels->write(text); });
    m_session = new CProjectSession(m_user.get(), m_recent, this);
    m_session->setProgramVersion(ProgramInfo::Version);
    m_session->setRecoveryRoot(
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
        QStringLiteral("/kiv-panel-composer/unsaved"));
    m_opener = new CProjectOpener(m_session);
    m_opener->setBusyCheck([this] { return isBusy(); });
    m_autosaver = std::make_unique<CAutosaver>(m_session);
    m_autosaver->setBusyCheck([this] { return isBusy(); });
    m_autosaver->setEditorCheck([this] { return m_panels->isEditorOpen(); });
    m_autosaveTimer = new CAutosaveTimer(this);
    m_autosaveRetry = new QTimer(this);
    m_autosaveRetry->setSingleShot(true);
    connect(m_autosaveRetry, &QTimer::timeout, this, &CMainWindow::autosave);
    m_export = new CExportController(this, CEmulatorAdapter::instance(), m_user.get());
    m_exports = std::make_unique<CExportCommands>(m_panels, m_session, m_export);
    connect(m_export, &CExportController::findings, m_panels, &CMainPanels::showFindings);
    connect(m_export, &CExportController::finished, this, [this] {
        if (m_closeAfterExport)
            QTimer::singleShot(0, this, &QWidget::close);
    });
    m_start = new CStartScreen(m_session, m_panels, m_folder + QStringLiteral("/examples"));
    m_start->show();
}

void CMainWindow::makeOptionDialog()
{
    delete m_options;
    m_options = new COptionDialog(m_platforms, this, this);
    connect(m_options, &COptionDialog::nudgeStepsChosen, CEditorState::instance(),
            &CEditorState::setNudgeSteps);
    connect(m_options, &COptionDialog::autosaveIntervalChanged, this,
            &CMainWindow::setAutosaveInterval);
}

void CMainWindow::connectSession()
{
    connect(m_session, &CProjectSession::projectOpened, this, &CMainWindow::activate);
    connect(m_session, &CProjectSession::projectAboutToClose, this, &CMainWindow::deactivate);
    connect(m_session, &CProjectSession::titleChanged, this, &CMainWindow::showProjectName);
    connect(m_session, &CProjectSession::projectLoaded, this, [this] {
        m_viewMemory->restore(m_session->path(), project());
        if (CScreenView *view = m_panels->screens()->currentView())
            view->setFocus(); // what had it belonged to the start page, or to another project
        m_autosaveRetry->stop();
        m_autosaveTimer->restart();
        Q_EMIT projectLoaded();
    });
    connect(m_session, &CProjectSession::projectClosed, this, [this] {
        m_emulator->close();
        m_errorMessage->withdrawQuiet();
        m_start->showSoon();
        Q_EMIT projectClosed();
    });
    connect(m_session, &CProjectSession::saved, this,
            [this](const QString &path, CProjectFile::EWrite kind) {
                m_errorMessage->withdrawQuiet();
                if (kind == CProjectFile::EWrite::ByUser)
                    m_start->keepPicture();
                statusBar()->showMessage((kind == CProjectFile::EWrite::ByUser
                                              ? tr("Saved %1")
                                              : tr("Saved automatically: %1"))
                                             .arg(ShownText::name(QDir::toNativeSeparators(path))),
                                         SavedTime);
                showSaveState();
            });
    connect(m_undoGroup, &QUndoGroup::cleanChanged, this, &CMainWindow::showSaveState);
    connect(this, &CMainWindow::projectLoaded, this, &CMainWindow::showSaveState);
    connect(this, &CMainWindow::projectClosed, this, &CMainWindow::showSaveState);
    connect(m_errorMessage, &CErrorBox::saveAsWanted, this, &CMainWindow::saveProjectAs);
    connect(m_recent, &CRecentProjects::changed, this, [this] {
        showRecentProjects();
        Q_EMIT listRecentProjectsUpdated();
    });
    connect(m_start, &CStartScreen::newProjectWanted, this, &CMainWindow::newProject);
    connect(m_start, &CStartScreen::openWanted, this, &CMainWindow::openProject);
    connect(m_start, &CStartScreen::projectWanted, m_opener, &CProjectOpener::open);
    connect(m_opener, &CProjectOpener::aboutToOpen, m_panels, &CMainPanels::finishEdits);
    auto *notice = new CReadingNotice(this);
    connect(m_opener, &CProjectOpener::readingChanged, this, [this, notice](const QString &path) {
        notice->tell(path);
        if (path.isEmpty())
            unsetCursor();
        else
            setCursor(Qt::BusyCursor);
    });
}

/// On the start page; the menu keeps the order of the list.
void CMainWindow::showRecentProjects()
{
    m_start->setRecentProjects(m_viewMemory->views()->lastFirst(m_recent->paths()));
}

void CMainWindow::activate(CProjectModel *project)
{
    m_emulator->open(project);
    m_panels->showProject(project);
    m_subjects->setProject(project);
    m_undoGroup->addStack(project->undoStack());
    m_undoGroup->setActiveStack(project->undoStack());
    m_start->hide();
    m_statusBar->setMemoryBudget(CPlatformTable::ramGBudget(project->platform()));
}

void CMainWindow::deactivate(CProjectModel *project)
{
    m_export->cancel();
    m_viewMemory->remember(m_session->path());
    m_start->keepPicture();
    showRecentProjects();
    m_undoGroup->removeStack(project->undoStack());
    m_subjects->setProject(nullptr);
    m_panels->clear();
    m_statusBar->resetStatusBar();
}

void CMainWindow::showSaveState()
{
    m_menuBar->setUnsaved(m_session->isDirty());
    m_menuBar->action(CMenuBar::Revert)->setEnabled(m_session->canRevert());
}

void CMainWindow::projectOptionsChanged()
{
    m_emulator->applyOptions(project(), [this] { updateRepaint(); });
    m_panels->refresh();
    m_statusBar->setMemoryBudget(CPlatformTable::ramGBudget(project()->platform()));
    const QSize size = project()->resolution();
    Q_EMIT configChanged(uint32_t(size.width()), uint32_t(size.height()));
    m_subjects->rounds()->restart();
    showProjectName();
}

/// What went wrong while the window was made is told on it, not below it: a window manager keeps a
/// box above its window only when the window was there first.
void CMainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (!m_errorMessage->isVisible())
        return;
    m_errorMessage->hide();
    QTimer::singleShot(0, m_errorMessage, &QWidget::show);
}

void CMainWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    m_closeAfterExport = m_export->isRunning();
    if (m_closeAfterExport) {
        m_export->cancel(); // it stands on this window's shoulders; it comes back here when done
        return;
    }
    if (!closeProject())
        return;
    m_opener->cancel();
    writeSettings();
    event->accept();
}

void CMainWindow::saveUnattended()
{
    m_opener->cancel();
    m_export->cancel();
    m_panels->cancelGestures();
    if (m_autosaveInterval > 0)
        m_session->autosave();
    else
        m_session->keepUnsaved();
}

void CMainWindow::keepUnsaved()
{
    m_session->keepUnsaved();
}

void CMainWindow::closeUnattended()
{
    saveUnattended();
    m_session->closeWithoutQuestions();
    writeSettings();
}

void CMainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !m_menuBar)
        return;
    m_menuBar->retranslate();
    m_subjects->retranslate();
    m_centre->retranslate();
    m_errorMessage->retranslate();
    showSaveState();
    m_panels->retranslate();
    makeOptionDialog(); // in the new language
    showProjectName();
}

bool CMainWindow::isBusy() const
{
    return m_export->isRunning() || m_panels->isGestureActive() ||
           QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           QApplication::mouseButtons() != Qt::NoButton;
}

void CMainWindow::showTheme(CTheme::Kind kind)
{
    m_theme.apply(kind);
    m_menuBar->setChecked(kind == CTheme::Kind::Light    ? CMenuBar::Light
                          : kind == CTheme::Kind::Bright ? CMenuBar::Bright
                                                         : CMenuBar::Dark,
                          true);
}

/// The marks of the Windows menu follow what is shown, also when a dock was closed by its button.
void CMainWindow::showWindowToggles()
{
    const std::pair<CMenuBar::EAction, QDockWidget *> docks[] = {
        {CMenuBar::ProjectWindow, m_panels->explorerDock()},
        {CMenuBar::LibraryWindow, m_panels->paletteDock()},
        {CMenuBar::PropertiesWindow, m_panels->propertiesDock()},
        {CMenuBar::BatchWindow, m_panels->batchDock()},
        {CMenuBar::OutputWindow, m_panels->outputDock()}};
    for (const auto &each : docks) {
        QAction *mark = m_menuBar->action(each.first);
        mark->setChecked(!each.second->isHidden());
        // From action to action: both end with this window, in an order that nobody has to know.
        connect(each.second->toggleViewAction(), &QAction::toggled, mark, &QAction::setChecked);
    }
    m_menuBar->setChecked(CMenuBar::StatusBar, !statusBar()->isHidden());
}

CProjectModel *CMainWindow::project() const
{
    return m_session->project();
}

QString CMainWindow::projectPath() const
{
    return m_session->path();
}

void CMainWindow::setAutosaveInterval(int seconds)
{
    m_autosaveInterval = seconds;
    m_autosaveTimer->restart();
}

void CMainWindow::savingPathChanged(const QString &path)
{
    m_savingFolder = path;
    m_user->setSavingFolder(path);
}
