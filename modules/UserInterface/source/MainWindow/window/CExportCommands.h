#pragma once

#include <QString>

#include <optional>

class CExportController;
class CMainPanels;
class CProjectSession;
struct SShownScreen;

/// The exports of the menu, of the open project or of the page that is shown. They do nothing where
/// there is none.
class CExportCommands
{
public:
    /// None is owned.
    CExportCommands(CMainPanels *panels, CProjectSession *session, CExportController *controller);

    void projectDL();
    void projectBin();
    void package();
    void pageDL();
    void pageBin();

private:
    std::optional<SShownScreen> shownScreen();
    QString folder() const;

    CMainPanels *const m_panels;
    CProjectSession *const m_session;
    CExportController *const m_controller;
};
