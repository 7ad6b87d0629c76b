#pragma once

#include "CVersionDialog.h"

#include <QObject>
#include <QString>

#include <functional>

class CComparison;
class CCompareView;
class CGitVersions;
class CMainPanels;
class CMenuBar;
class CProjectFile;
class CProjectModel;
class QAction;
class QDockWidget;
class QMainWindow;

/// File > "Compare With..." and the dock "Compare": what changed since an earlier version.
class CCompareActions final : public QObject
{
    Q_OBJECT

public:
    /// Where versions of the open project are.
    struct SPlaces
    {
        QString file; ///< empty when it was never saved
        QString copy; ///< its recovery copy; empty when there is none
        QString left; ///< the folder with recovery copies of all projects
    };

    /// Adds the dock to the window, hidden at first, and entries to the menus.
    CCompareActions(QMainWindow *window, CMainPanels *panels, const CMenuBar &menus,
                    std::function<SPlaces()> places);

    QDockWidget *dock() const { return m_dock; }
    CCompareView *view() const { return m_view; }
    CComparison *comparison() const { return m_comparison; }
    void setProject(CProjectModel *project); ///< not owned; null for none
    /// Asks with what.
    void choose();
    /// Reads it in the background and shows the dock, or says why not.
    void compareWith(const CVersionDialog::SChoice &choice, const QString &file);
    /// The user has saved: what is compared with the version that he saved last follows, soon or
    /// when the dock is seen again.
    void followSave();
    void retranslate();

private:
    struct SRead
    {
        QByteArray bytes;
        QString title; ///< for people
        QString error; ///< empty when it was read
    };

    static QVector<CVersionDialog::SChoice> keptOf(const SPlaces &places);
    static QString titleOfSaved(const CProjectFile &file);
    void addLeft(CVersionDialog *dialog, const SPlaces &places);
    static SRead readVersion(const CVersionDialog::SChoice &choice, const QString &file);
    /// Of which kind a version is, and after how many saves it was read.
    struct STaken
    {
        bool isSaved = false;
        int saves = 0;
    };

    void fetch(const QString &id, const QString &file, const QString &title);
    void read(const CVersionDialog::SChoice &choice, const QString &file, bool isAsked);
    void noteTaken();
    void follow();
    void setVisible(bool isVisible);
    void showDock();
    void fail(const QString &reason);

    QMainWindow *const m_window;
    const std::function<SPlaces()> m_places;
    CComparison *const m_comparison;
    CCompareView *const m_view;
    QDockWidget *const m_dock;
    QAction *const m_action;
    CGitVersions *m_git = nullptr; ///< of the question under way
    CMainPanels *const m_panels;
    int m_question = 0;                       ///< the answer to an earlier one does not count
    int m_saves = 0;                          ///< of the user
    STaken m_asked;                           ///< of what was given to the comparison last
    STaken m_compared;                        ///< of what is compared with
    const CProjectModel *m_earlier = nullptr; ///< that is compared with; to be looked at only
};
