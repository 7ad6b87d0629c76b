#pragma once

#include <QObject>

class CMainPanels;
class CProjectPictures;
class CProjectSession;
class CStartPage;

/// What is seen while no project is open: when the start page comes and goes, what its links do to
/// the project's life, and the pictures that it shows of recent projects.
class CStartScreen final : public QObject
{
    Q_OBJECT

public:
    /// The panels and the session must outlive it. `examples`: as of CStartPage.
    CStartScreen(CProjectSession *session, CMainPanels *panels, const QString &examples);

    void show();
    /// When the user is served; not at all when a project is open by then.
    void showSoon();
    void hide();
    void setRecentProjects(const QStringList &paths);
    /// Keeps the first page of the open project that was drawn, as the project's picture.
    void keepPicture();

Q_SIGNALS:
    void newProjectWanted();
    void openWanted();
    void projectWanted(const QString &path);

private:
    void showNoHint();

    CProjectSession *const m_session;
    CMainPanels *const m_panels;
    CProjectPictures *const m_pictures;
    CStartPage *const m_page;
};
