#include "CExportCommands.h"

#include "CExportController.h"
#include "CMainPanels.h"
#include "CProjectModel.h"
#include "CProjectSession.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenView.h"
#include "ChipFindings.h"
#include "ItemTree.h"

CExportCommands::CExportCommands(CMainPanels *panels, CProjectSession *session,
                                 CExportController *controller)
    : m_panels(panels), m_session(session), m_controller(controller)
{
}

QString CExportCommands::folder() const
{
    return m_session->workingDirectory();
}

void CExportCommands::projectDL()
{
    m_panels->finishEdits();
    if (m_session->project())
        m_controller->exportProjectDL(m_session->project(), folder());
}

void CExportCommands::projectBin()
{
    m_panels->finishEdits();
    if (m_session->project())
        m_controller->exportProjectBin(m_session->project(), folder());
}

void CExportCommands::package()
{
    m_panels->finishEdits();
    if (m_session->project())
        m_controller->exportPackage(m_session->project(), folder());
}

void CExportCommands::pageDL()
{
    if (const auto screen = shownScreen())
        m_controller->exportScreenDL(*screen, folder());
}

void CExportCommands::pageBin()
{
    if (const auto screen = shownScreen())
        m_controller->exportScreenBin(*screen, folder());
}

/// As it was drawn last; drawn anew where the canvas leaves something out.
std::optional<SShownScreen> CExportCommands::shownScreen()
{
    const CScreenView *view = m_panels->screens()->currentView();
    if (!view || !view->screen())
        return std::nullopt;
    if (countItems(*view->screen()).hidden > 0) {
        SShownScreen whole;
        whole.name = view->screen()->name();
        const bool isDrawn =
            m_controller->drawHidden(&whole, m_session->project(), view->screen()->row());
        return isDrawn ? std::optional(whole) : std::nullopt;
    }
    QStringList findings = chipFindings(*view->screen());
    findings.prepend(m_panels->screens()->currentErrors());
    findings.removeAll(QString());
    return SShownScreen{view->screen()->name(), view->lastDisplayListText(),
                        view->lastDisplayListBytes(), findings.join(QLatin1Char('\n'))};
}
