#include "CCommandChangeOptions.h"

#include "CProjectModel.h"
#include "IProjectOptionsObserver.h"

CCommandChangeOptions::CCommandChangeOptions(CProjectModel *project, const Options &options,
                                             IProjectOptionsObserver *observer,
                                             QUndoCommand *parent)
    : QUndoCommand(parent), m_project(project), m_observer(observer), m_newOptions(options)
{
    for (auto it = options.cbegin(); it != options.cend(); ++it) {
        if (project->properties().contains(it.key()))
            m_oldOptions.insert(it.key(), project->propertyText(it.key()));
        else
            m_addedKeys.append(it.key());
    }
}

void CCommandChangeOptions::redo()
{
    m_project->setProjectProperties(m_newOptions);
    refresh();
}

void CCommandChangeOptions::undo()
{
    m_project->setProjectProperties(m_oldOptions);
    for (const QString &key : m_addedKeys)
        m_project->removeProjectProperty(key);
    refresh();
}

void CCommandChangeOptions::refresh()
{
    if (m_observer)
        m_observer->projectOptionsChanged();
}
