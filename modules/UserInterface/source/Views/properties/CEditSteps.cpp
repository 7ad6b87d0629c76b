#include "CEditSteps.h"

#include <QUndoStack>

void CEditSteps::begin(bool isFirst)
{
    m_isStep = true;
    if (isFirst)
        m_first = m_last = 0;
}

void CEditSteps::end()
{
    m_isStep = false;
}

void CEditSteps::pushed(int before, int after)
{
    if (!m_isStep)
        return;
    if (m_first == m_last || m_last != before)
        m_first = before;
    m_last = after;
}

void CEditSteps::takeBack(QUndoStack *stack)
{
    if (m_first != m_last && stack->index() == m_last)
        stack->setIndex(m_first);
    m_first = m_last = 0;
}
