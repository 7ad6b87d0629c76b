// The slots of CMainWindow that carry out the commands of the menus.
#include "CAutosaver.h"
#include "CDialogQuestions.h"
#include "CEditCommands.h"
#include "CEditorState.h"
#include "CEmulatorAdapter.h"
#include "CExportController.h"
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
#include "CScreenModel.h"
#include "CScreenNavigator.h"
#include "CScreenView.h"
#include "CSelectionCommands.h"
#include "CUpdater.h"
#include "CZoomComboWidget.h"
#include "ChipFindings.h"
#include "ItemGeometry.h"
#include "ItemTree.h"
#include "ProgramInfo.h"
#include "ZoomRule.h"

#include <QAction>
#include <QDockWidget>
#include <QFile>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>

namespace {
constexpr int AutosaveRetryTime = 1000; // ms
constexpr double ShareOfView = 0.8;     // that the selection takes up when it is zoomed to

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
    m_panels->finishEdits();
    if (project())
        m_export->exportProjectDL(project(), m_session->workingDirectory());
}

void CMainWindow::exportProjectBin()
{
    m_panels->finishEdits();
    if (project())
        m_export->exportProjectBin(project(), m_session->workingDirectory());
}

void CMainWindow::exportPackage()
{
    m_panels->finishEdits();
    if (project())
        m_export->exportPackage(project(), m_session->workingDirectory());
}

void CMainWindow::setSnapToGrid(bool enabled)
{
    CEditorState::instance()->setSnapToGrid(enabled);
}

bool CMainWindow::snapToGrid() const
{
    return CEditorState::instance()->isSnapToGrid();
}

std::optional<SShownScreen> CMainWindow::shownScreen()
{
    const CScreenView *view = m_panels->screens()->currentView();
    if (!view || !view->screen())
        return std::nullopt;
    if (countItems(*view->screen()).hidden > 0) {
        SShownScreen whole;
        whole.name = view->screen()->name();
        const bool isDrawn = m_export->drawHidden(&whole, project(), view->screen()->row());
        return isDrawn ? std::optional(whole) : std::nullopt;
    }
    QStringList findings = chipFindings(*view->screen());
    findings.prepend(m_panels->screens()->currentErrors());
    findings.removeAll(QString());
    return SShownScreen{view->screen()->name(), view->lastDisplayListText(),
                        view->lastDisplayListBytes(), findings.join(QLatin1Char('\n'))};
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
    if (const auto screen = shownScreen())
        m_export->exportScreenDL(*screen, m_session->workingDirectory());
}

void CMainWindow::exportScreenBin()
{
    if (const auto screen = shownScreen())
        m_export->exportScreenBin(*screen, m_session->workingDirectory());
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
    if (CScreenView *view = m_panels->screens()->currentView())
        view->showPreviousZoom();
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
    const CScreenView *view = m_panels->screens()->currentView();
    zoomTo(view ? view->selectedItems() : QVector<CItemModel *>());
}

void CMainWindow::zoomTo(const QVector<CItemModel *> &items)
{
    CScreenView *view = m_panels->screens()->currentView();
    if (!view || items.isEmpty())
        return;
    const QRectF frame = ItemGeometry::frameOf(items);
    const double across = view->viewport()->width() / std::max(1.0, frame.width());
    const double down = view->viewport()->height() / std::max(1.0, frame.height());
    const int percent = static_cast<int>(std::min(across, down) * ShareOfView * 100);
    m_menuBar->zoomWidget()->setZoom(ZoomRule::clamped(percent), CZoomComboWidget::FreeValue);
    view->reveal(frame);
    view->centerOn(frame.center());
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
