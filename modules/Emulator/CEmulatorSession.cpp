#include "CEmulatorSession.h"

#include "CEmulatorAdapter.h"
#include "CPlatformTable.h"
#include "CProjectModel.h"

CEmulatorSession::CEmulatorSession(CEmulatorAdapter *adapter) : m_adapter(adapter)
{
}

void CEmulatorSession::open(CProjectModel *project)
{
    m_adapter->followProject(project);
    start(project);
}

bool CEmulatorSession::applyOptions(const CProjectModel *project,
                                    const std::function<void()> &stopped)
{
    if (CPlatformTable::chipCode(project->platform()) == m_adapter->chipCode()) {
        configure(project);
        return false;
    }
    m_adapter->emulatorStop();
    if (stopped)
        stopped();
    start(project);
    return true;
}

void CEmulatorSession::restart(const CProjectModel *project)
{
    m_adapter->emulatorStop();
    start(project);
}

void CEmulatorSession::close()
{
    m_adapter->emulatorStop();
}

void CEmulatorSession::start(const CProjectModel *project)
{
    m_adapter->emulatorStart(CPlatformTable::chipCode(project->platform()));
    configure(project);
}

void CEmulatorSession::configure(const CProjectModel *project)
{
    const QSize size = project->resolution().expandedTo(QSize(0, 0)); // a file may say anything
    m_adapter->emulatorConfigScreen(static_cast<uint32_t>(size.width()),
                                    static_cast<uint32_t>(size.height()));
}
