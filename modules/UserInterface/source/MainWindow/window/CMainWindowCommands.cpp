// The slots of CMainWindow that carry out the commands of the menus.
#include "CAutosaver.h"
#include "CDialogQuestions.h"
#include "CEditCommands.h"
#include "CEditorState.h"
#include "CEmulatorAdapter.h"
#include "CExportCommands.h"
#include "CFontsDialog.h"
#include "CHelpWindow.h"
#include "CLanguageDialog.h"
#include "CLanguageLoader.h"
#include "CMainPanels.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "COptionDialog.h"
#include "CPrintScreenDialog.h"
#include "CProjectModel.h"
#include "CProjectOpener.h"
#include "CProjectSession.h"
#include "CScreen.h"
#include "CScreenNavigator.h"
#include "CScreenView.h"
#include "CSelectionCommands.h"
#include "CUpdater.h"
#include "CZoomCommands.h"
#include "ProgramInfo.h"

#include <QAction>
#include <QDockWidget>
#include <QFile>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

namespace {
constexpr int AutosaveRetryTime = 1000; // ms

void toggle(QWidget *widget)
{
    widget->setVisible(widget->isHidden());
}
} // namespace

void CMainWindow::darkStyle()
{
    showTheme(CTheme::Kind::Dark);
}

void CMainWindow::lightStyle()
{
    showTheme(CTheme::Kind::Light);
}

void CMainWindow::brightStyle()
{
    showTheme(CTheme::Kind::Bright);
}

void CMainWindow::toggleStatusBar()
{
    toggle(statusBar());
    m_menuBar->setChecked(CMenuBar::StatusBar, !statusBar()->isHidden());
}

void CMainWindow::toggleOutputWindow()
{
    toggle(m_panels->outputDock());
}

void CMainWindow::togglePropertiesWindow()
{
    toggle(m_panels->propertiesDock());
}

void CMainWindow::toggleBatchWindow()
{
    toggle(m_panels->batchDock());
    m_panels->batchDock()->raise(); // it shares a place
}

void CMainWindow::toggleLibraryWindow()
{
    toggle(m_panels->paletteDock());
}

void CMainWindow::toggleProjectWindow()
{
    toggle(m_panels->explorerDock());
}

void CMainWindow::newProject()
{
    m_panels->finishEdits();
    m_session->newProject();
}

void CMainWindow::openProject()
{
    m_panels->finishEdits();
    const QString path = m_user->projectToOpen(m_session->workingDirectory());
    if (!path.isEmpty())
        m_opener->open(path);
}

bool CMainWindow::validateProjectFile(QFile &file)
{
    return m_session->validate(file);
}

bool CMainWindow::openProjectFile(const QString &path)
{
    return m_session->openFile(path);
}

void CMainWindow::showProjectName()
{
    const QString mark = QStringLiteral("[*]"); // which Qt takes for the place of its star
    setWindowTitle(m_session->title().replace(mark, mark + mark));
}

void CMainWindow::openRecent(QAction *action)
{
    m_panels->finishEdits();
    m_opener->open(action->whatsThis());
}

bool CMainWindow::closeProject()
{
    m_panels->finishEdits();
    return m_session->close();
}

bool CMainWindow::saveProject()
{
    m_panels->finishEdits();
    return m_session->save();
}

bool CMainWindow::saveProjectAs()
{
    m_panels->finishEdits();
    return m_session->saveAs();
}

void CMainWindow::revertProject()
{
    m_panels->finishEdits();
    m_session->revert();
}

void CMainWindow::autosave()
{
    if (m_autosaver->tick() == CAutosaver::ETick::Postponed)
        m_autosaveRetry->start(AutosaveRetryTime);
}

void CMainWindow::exportProjectDL()
{
    m_exports->projectDL();
}

void CMainWindow::exportProjectBin()
{
    m_exports->projectBin();
}

void CMainWindow::exportPackage()
{
    m_exports->package();
}

void CMainWindow::setSnapToGrid(bool enabled)
{
    CEditorState::instance()->setSnapToGrid(enabled);
}

bool CMainWindow::snapToGrid() const
{
    return CEditorState::instance()->isSnapToGrid();
}

void CMainWindow::loadLanguage(const QString &rLanguage)
{
    if (m_languages->load(rLanguage))
        m_chosenLanguage = rLanguage;
}

void CMainWindow::showAboutBox()
{
    m_aboutBox->setWindowTitle(tr("About"));
    m_aboutBox->setIconPixmap(windowIcon().pixmap(64, 64));
    m_aboutBox->setText(ProgramInfo::about(m_languages->language()));
    m_aboutBox->exec();
}

void CMainWindow::zoomChanged(int zoomPercent, int zoomType)
{
    m_menuBar->updateZoomMenu(zoomPercent, zoomType);
    CEditorState::instance()->setZoom(zoomPercent, zoomType);
    updateRepaint();
}

void CMainWindow::gridChanged(bool showGrid, int gridSize, QColor gridColor, Qt::PenStyle gridType)
{
    CEditorState::instance()->setGrid(showGrid, gridSize, gridColor, gridType);
}

void CMainWindow::deleteSelectedItems()
{
    m_edit->remove();
}

void CMainWindow::orderingToFront()
{
    m_edit->order(ItemOperations::EOrder::ToFront);
}

void CMainWindow::orderingToBack()
{
    m_edit->order(ItemOperations::EOrder::ToBack);
}

void CMainWindow::orderingForward()
{
    m_edit->order(ItemOperations::EOrder::Forward);
}

void CMainWindow::orderingBackward()
{
    m_edit->order(ItemOperations::EOrder::Backward);
}

void CMainWindow::showHelp()
{
    if (!m_help)
        m_help = makeHelp({}, this);
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

CHelpWindow *CMainWindow::makeHelp(const QString &place, QWidget *parent) const
{
    return new CHelpWindow(m_folder + QStringLiteral("/html/help.htm"), place, parent);
}

void CMainWindow::showOptionDialog()
{
    m_panels->finishEdits();
    m_options->fill(project(), m_autosaveInterval);
    const CEditorState *state = CEditorState::instance();
    m_options->fillNudgeSteps(state->nudgeStep(), state->fineNudgeStep());
    m_options->exec();
}

void CMainWindow::showFontsDialog()
{
    m_panels->finishEdits();
    if (project())
        CFontsDialog(CEmulatorAdapter::instance(), project(), this).exec();
}

void CMainWindow::showUpdateDialog()
{
    if (!m_updater)
        m_updater = new CUpdater(ProgramInfo::Version, this);
    m_updater->check(CUpdater::EMode::Answer);
}

void CMainWindow::showLanguageDialog()
{
    CLanguageDialog dialog(m_languages->folder(), m_languages->language(), this);
    connect(&dialog, &CLanguageDialog::languageChanged, this, &CMainWindow::loadLanguage);
    dialog.exec();
}

void CMainWindow::exportTabDL()
{
    m_exports->pageDL();
}

void CMainWindow::exportScreenBin()
{
    m_exports->pageBin();
}

void CMainWindow::copy()
{
    m_edit->copy();
}

void CMainWindow::cut()
{
    m_edit->cut();
}

void CMainWindow::paste()
{
    m_edit->paste();
}

void CMainWindow::pasteInPlace()
{
    m_edit->pasteInPlace();
}

void CMainWindow::duplicate()
{
    m_edit->duplicate();
}

void CMainWindow::zoomToPrevious()
{
    m_zoom->toPrevious();
}

void CMainWindow::hideItems()
{
    m_edit->hide();
}

void CMainWindow::showHiddenItems()
{
    m_edit->showHidden();
}

void CMainWindow::zoomToSelection()
{
    m_zoom->toSelection();
}

void CMainWindow::printScreen()
{
    if (!project())
        return;
    CScreenNavigator *navigator = m_panels->navigator();
    CPrintScreenDialog dialog([navigator] { return navigator->getScreenPixmaps(); },
                              m_screenshotFolder, this);
    connect(&dialog, &CPrintScreenDialog::message, m_panels, &CMainPanels::report);
    connect(navigator, &CScreenNavigator::frameTaken, &dialog, &CPrintScreenDialog::refresh);
    navigator->setAllWanted(true); // the dialog shows screens that were never visited too
    dialog.exec();
    navigator->setAllWanted(false);
    m_screenshotFolder = dialog.saveFolder();
}

void CMainWindow::renameSelected()
{
    m_panels->renameSelected();
}

void CMainWindow::lockItems()
{
    m_edit->lock();
}

void CMainWindow::newTab()
{
    if (project())
        m_panels->screens()->newTab();
}

void CMainWindow::selectAll()
{
    m_edit->selectAll();
}

void CMainWindow::selectNone()
{
    m_edit->selectNone();
}

void CMainWindow::selectInverse()
{
    m_edit->selectInverse();
}

void CMainWindow::group()
{
    m_edit->runOnView(&CSelectionCommands::group);
}

void CMainWindow::ungroup()
{
    m_edit->runOnView(&CSelectionCommands::ungroup);
}

/// The same frame in another way; who needs another frame asks the screens.
void CMainWindow::updateRepaint()
{
    if (const CScreenView *view = m_panels->screens()->currentView())
        view->viewport()->update();
}
