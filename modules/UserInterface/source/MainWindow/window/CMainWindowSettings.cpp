// What the window takes from the settings, and what it keeps there.
#include "CActionCentre.h"
#include "CActionFinder.h"
#include "CDialogQuestions.h"
#include "CEditorState.h"
#include "CLanguageLoader.h"
#include "CMainPanels.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CProjectSession.h"
#include "CRecentColours.h"
#include "CRecentProjects.h"
#include "CSettings.h"
#include "CSnapActions.h"
#include "CStartMark.h"
#include "CViewMemory.h"
#include "CWidgetPropertiesView.h"
#include "CWidgetSelectionView.h"
#include "CWindowActions.h"
#include "CWindowPlacement.h"
#include "CZoomComboWidget.h"
#include "ShownText.h"

#include <QDataStream>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QStatusBar>

namespace {
/// A layout that an earlier version has kept lacks the docks that it did not have: they stay with
/// those whose place they share.
void restoreLayout(QMainWindow &window, const QByteArray &layout)
{
    struct SNew
    {
        QDockWidget *dock;
        QDockWidget *partner;
        bool isHidden;
    };
    QVector<SNew> lacking;
    for (QDockWidget *each : window.findChildren<QDockWidget *>()) {
        QByteArray name;
        QDataStream stream(&name, QIODevice::WriteOnly);
        stream << each->objectName();
        const QList<QDockWidget *> partners = window.tabifiedDockWidgets(each);
        if (!layout.contains(name) && !partners.isEmpty())
            lacking.append({each, partners.constFirst(), each->isHidden()});
    }
    if (!window.restoreState(layout))
        return;
    for (const SNew &each : qAsConst(lacking)) {
        window.tabifyDockWidget(each.partner, each.dock);
        each.dock->setHidden(each.isHidden);
        each.partner->raise();
    }
}
} // namespace

SSettings CMainWindow::readSettings()
{
    m_startMark = std::make_unique<CStartMark>(m_settings->path(), this);
    const QString given = m_startMark->isAfterFailure() ? m_settings->setAside() : QString();
    QString broken;
    const SSettings settings = m_settings->read(&broken);
    if (m_languages->load(settings.language))
        m_chosenLanguage = settings.language;
    else
        m_languages->loadSystemLanguage();
    tellOfSettings(given, broken);
    return settings;
}

/// Of the files that were renamed, because a start with it failed, or because it holds none.
void CMainWindow::tellOfSettings(const QString &given, const QString &broken)
{
    const auto tell = [this](const QString &text, const QString &file) {
        if (!file.isEmpty())
            m_user->showNotice(text.arg(ShownText::message(QDir::toNativeSeparators(file))));
    };
    tell(tr("The program ended before its window was there when it was started last, so it starts "
            "with default settings. The settings of before are kept as %1."),
         given);
    tell(tr("The settings file could not be read, so the program starts with default settings. The "
            "file is kept as %1."),
         broken);
}

void CMainWindow::useSettings(const SSettings &values)
{
    if (!values.mainWindow.isNull())
        setGeometry(CWindowPlacement::placed(values.mainWindow,
                                             CWindowPlacement::likelyFrame(*this),
                                             CWindowPlacement::screensOf(*this)));
    if (values.isMaximized)
        setWindowState(windowState() | Qt::WindowMaximized);
    if (!values.windowState.isEmpty())
        restoreLayout(*this, values.windowState);
    Q_EMIT setZoom(values.zoomPercent, values.zoomType);
    Q_EMIT setGrid(values.showGrid, values.gridSize, values.gridColor, values.gridType);
    m_recent->setPaths(values.latestProjects);
    m_screenshotFolder = values.screenshotDir;
    showTheme(CTheme::kindOf(values.theme));
    savingPathChanged(values.savingFolderPath);
    m_session->setWorkingDirectory(QFileInfo(values.lastFolder).isDir() ? values.lastFolder
                                                                        : m_savingFolder);
    setSnapToGrid(values.snapToGrid);
    CEditorState::instance()->setGuidesShown(values.showGuides);
    CEditorState::instance()->setGridFaint(values.gridFaint);
    m_menuBar->setChecked(CMenuBar::GridFaint, values.gridFaint);
    CSnapActions::use(values);
    CEditorState::instance()->setNudgeSteps(values.nudgeStep, values.fineNudgeStep);
    setAutosaveInterval(values.autosaveInterval);
    m_panels->properties()->setClosedSections(values.closedSections);
    CRecentColours::instance().setNames(values.recentColours);
    m_panels->palette()->setShelf(CWidgetSelectionView::Favourites, values.favouriteWidgets);
    m_panels->palette()->setShelf(CWidgetSelectionView::LastUsed, values.lastWidgets);
    m_centre->actions()->setShortcutTexts(values.shortcuts);
    m_centre->finder()->setLastUsed(values.usedActions);
    m_viewMemory->views()->setTexts(values.projectViews);
    showRecentProjects();
}

void CMainWindow::writeSettings()
{
    SSettings values;
    values.mainWindow = isMaximized() ? normalGeometry() : geometry();
    values.isMaximized = isMaximized();
    values.windowState = saveState();
    // A type that was chosen without effect so far is kept as chosen.
    values.zoomPercent = m_menuBar->zoomWidget()->zoomPercent();
    values.zoomType = m_menuBar->zoomWidget()->zoomType();
    const CEditorState *state = CEditorState::instance();
    values.showGrid = state->isGridShown();
    values.gridSize = state->gridSpacing();
    values.gridColor = state->gridColour();
    values.gridType = state->gridStyle();
    values.latestProjects = m_recent->paths();
    values.screenshotDir = m_screenshotFolder;
    values.theme = m_theme.name();
    values.statusBar = !statusBar()->isHidden();
    values.savingFolderPath = m_savingFolder;
    values.autosaveInterval = m_autosaveInterval;
    values.language = m_chosenLanguage;
    values.lastFolder = m_session->workingDirectory();
    values.snapToGrid = state->isSnapToGrid();
    values.closedSections = m_panels->properties()->closedSections();
    values.recentColours = CRecentColours::instance().names();
    CSnapActions::keep(values);
    values.nudgeStep = state->nudgeStep();
    values.fineNudgeStep = state->fineNudgeStep();
    values.favouriteWidgets = m_panels->palette()->shelf(CWidgetSelectionView::Favourites);
    values.lastWidgets = m_panels->palette()->shelf(CWidgetSelectionView::LastUsed);
    values.shortcuts = m_centre->actions()->shortcutTexts();
    values.projectViews = m_viewMemory->views()->texts();
    values.usedActions = m_centre->finder()->lastUsed();
    values.showGuides = state->areGuidesShown();
    values.gridFaint = state->isGridFaint();
    m_settings->write(values);
}
