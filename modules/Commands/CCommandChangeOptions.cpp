#include "CCommandChangeOptions.h"

#include "CProjectModel.h"
#include "IProjectOptionsObserver.h"

CCommandChangeOptions::CCommandChangeOptions(CProjectModel *project, const Options &options,
                                             IProjectOptionsObserver *observer,
                                             QUndoCommand *parent)
    : QUndoCommand(parent), m_project(project), m_observer(observer), m_newOptions(options)
{
    for (auto it = options.cbegin(); it != options.cend(); ++it)
        m_oldOptions.insert(it.key(), project->propertyText(it.key()));
}

void CCommandChangeOptions::apply(const Options &options)
{
    m_project->setProjectProperties(options);
    if (m_observer)
        m_observer->projectOptionsChanged();
}
