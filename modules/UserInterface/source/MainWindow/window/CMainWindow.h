#pragma once

#include "CMenuSubjects.h"
#include "CPlatformTable.h"
#include "CTheme.h"
#include "IProjectOptionsObserver.h"

#include <QColor>
#include <QMainWindow>

#include <memory>

class CActionCentre;
class CAutosaver;
class CAutosaveTimer;
class CDialogQuestions;
class CEditCommands;
class CEmulatorSession;
class CErrorBox;
class CExportCommands;
class CExportController;
class CHelpWindow;
class CItemModel;
class CLanguageLoader;
class CMainPanels;
class CMenuBar;
class COptionDialog;
class CProjectModel;
class CProjectOpener;
class CProjectSession;
class CRecentProjects;
class CScreenModel;
class CScreenView;
class CSettings;
class CStartMark;
class CStartScreen;
class CStatusBar;
class CUpdater;
class CViewMemory;
class CZoomCommands;
class QFile;
class QMessageBox;
class QTimer;
class QUndoGroup;
struct SSettings;

/// The frame of the application: makes the parts, connects them, and hands each command of the
/// menus to the part that carries it out.
/// The current directory must be the programs' folder, where all data files are looked for.
class CMainWindow : public QMainWindow, public IProjectOptionsObserver
{
    Q_OBJECT

public:
    /// `file`: a project to open, as named on the command line; ignored when it does not exist.
    explicit CMainWindow(const QString &file = {});
    ~CMainWindow() override;

    QUndoGroup *undoGroup() const { return m_undoGroup; }
    CRecentProjects *recentProjects() const { return m_recent; }
    CMenuBar *actions() const { return m_menuBar; }
    CArrangeActions *arrangeActions() const { return m_subjects->arrange(); }
    CSnapActions *snapActions() const { return m_subjects->snap(); }
    CActionCentre *actionCentre() const { return m_centre; }
    /// A new window with the user guide, not shown yet. `place`: the id of a part of it.
    CHelpWindow *makeHelp(const QString &place, QWidget *parent) const;
    CGuideActions *guideActions() const { return m_subjects->guides(); }
    CFindActions *findActions() const { return m_subjects->find(); }
    CHistoryDock *historyDock() const { return m_subjects->history(); }
    CCheckActions *checkActions() const { return m_subjects->checks(); }
    CCompareActions *compareActions() const { return m_subjects->compare(); }
    CBudgetActions *budgetActions() const { return m_subjects->budget(); }
    CProjectModel *project() const; ///< null when none is open
    QString projectPath() const;
    const CProjectSession *session() const { return m_session; }
    int autosaveInterval() const { return m_autosaveInterval; } ///< seconds; 0 or less: off
    void setAutosaveInterval(int seconds);
    bool snapToGrid() const;

    /// The end of the program from outside. The first breaks off what is under way and saves
    /// automatically or, if that is switched off, keeps a recovery copy; it may be called in the
    /// middle of a dialog. The second, when no dialog is open any more, closes without a question
    /// and keeps the settings. The third only keeps a recovery copy, and touches no window.
    void saveUnattended();
    void closeUnattended();
    void keepUnsaved();
    void projectOptionsChanged() override;

Q_SIGNALS:
    void configChanged(uint32_t width, uint32_t height);
    void setZoom(int zoomPercent, int zoomType);
    void setGrid(bool showGrid, int gridSize, QColor gridColor, Qt::PenStyle gridType);
    void listRecentProjectsUpdated();
    void projectLoaded();
    void projectClosed();

public Q_SLOTS:
    void darkStyle();
    void lightStyle();
    void brightStyle();
    void toggleStatusBar();
    void toggleOutputWindow();
    void togglePropertiesWindow();
    void toggleBatchWindow();
    void toggleLibraryWindow();
    void toggleProjectWindow();
    void newProject();
    void openProject();
    bool validateProjectFile(QFile &file);
    bool openProjectFile(const QString &path);
    void showProjectName();
    void openRecent(QAction *action);
    bool closeProject();
    bool saveProject();
    bool saveProjectAs();
    void deleteSelectedItems();
    void orderingToFront();
    void orderingToBack();
    void orderingForward();
    void orderingBackward();
    void showHelp();
    void showAboutBox();
    void showOptionDialog();
    void showFontsDialog();
    void showUpdateDialog();
    void showLanguageDialog();
    void autosave();
    void exportProjectDL();
    void exportTabDL();
    void exportProjectBin();
    void exportScreenBin();
    void zoomChanged(int zoomPercent, int zoomType);
    void gridChanged(bool showGrid, int gridSize, QColor gridColor, Qt::PenStyle gridType);
    void savingPathChanged(const QString &path);
    void setSnapToGrid(bool enabled);
    void copy();
    void cut();
    void paste();
    void printScreen();
    void lockItems();
    void renameSelected();
    void loadLanguage(const QString &rLanguage);
    void exportPackage();

    // What the menus command besides.
    void revertProject();
    void newTab();
    void pasteInPlace();
    void duplicate();
    void zoomToSelection();
    void zoomToPrevious();
    void hideItems();
    void showHiddenItems();
    void selectAll();
    void selectNone();
    void selectInverse();
    void group();
    void ungroup();
    void updateRepaint();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    SSettings readSettings();
    void tellOfSettings(const QString &given, const QString &broken);
    void startSubsystems();
    void makeProjectParts();
    void makeOptionDialog();
    void useSettings(const SSettings &values);
    void writeSettings();
    void showSaveState();
    void connectSession();
    void showRecentProjects();
    void activate(CProjectModel *project);
    void deactivate(CProjectModel *project);
    void showTheme(CTheme::Kind kind);
    void showWindowToggles();
    bool isBusy() const;

    const QString m_folder; ///< of the programs and their data
    const CPlatformTable m_platforms;
    CTheme m_theme;
    CErrorBox *m_errorMessage;
    QMessageBox *m_aboutBox;
    QUndoGroup *m_undoGroup;
    CRecentProjects *m_recent;
    std::unique_ptr<CSettings> m_settings;
    std::unique_ptr<CStartMark> m_startMark;
    std::unique_ptr<CDialogQuestions> m_user;
    std::unique_ptr<CLanguageLoader> m_languages;
    std::unique_ptr<CEmulatorSession> m_emulator;
    CProjectSession *m_session = nullptr;
    CProjectOpener *m_opener = nullptr;
    std::unique_ptr<CAutosaver> m_autosaver;
    CAutosaveTimer *m_autosaveTimer = nullptr;
    QTimer *m_autosaveRetry = nullptr;
    CExportController *m_export = nullptr;
    std::unique_ptr<CExportCommands> m_exports;
    CMainPanels *m_panels = nullptr;
    std::unique_ptr<CEditCommands> m_edit;
    CMenuBar *m_menuBar = nullptr;
    std::unique_ptr<CZoomCommands> m_zoom;
    std::unique_ptr<CMenuSubjects> m_subjects;
    CActionCentre *m_centre = nullptr;
    CViewMemory *m_viewMemory = nullptr;
    CStartScreen *m_start = nullptr;
    CStatusBar *m_statusBar = nullptr;
    COptionDialog *m_options = nullptr;
    CUpdater *m_updater = nullptr; ///< null until a check is wanted
    CHelpWindow *m_help = nullptr; ///< null until it is wanted
    QString m_screenshotFolder;
    QString m_savingFolder;
    QString m_chosenLanguage; ///< empty: the system's
    int m_autosaveInterval = 0;
    bool m_closeAfterExport = false;
};
