#include "CCommandChangeProjectProperty.h"

#include "CProjectModel.h"

namespace {

QString textOf(const CProjectModel &project, const QString &key)
{
    const bool isThere = project.properties().contains(key);
    return isThere ? project.propertyText(key) + QLatin1String("") : QString();
}

} // namespace

CCommandChangeProjectProperty::CCommandChangeProjectProperty(CProjectModel *project,
                                                             const QString &key,
                                                             const QString &text,
                                                             QUndoCommand *parent)
    : QUndoCommand(parent),
      m_project(project),
      m_key(key),
      m_newText(text),
      m_oldText(textOf(*project, key))
{
}

void CCommandChangeProjectProperty::apply(const QString &text)
{
    if (text.isNull())
        m_project->removeProjectProperty(m_key);
    else
        m_project->setProjectProperty(m_key, text);
}
