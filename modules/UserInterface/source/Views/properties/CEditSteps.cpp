#include "CEditSteps.h"

#include <QUndoStack>

void CEditSteps::begin(bool isFirst, bool goesOn)
{
    m_isStep = true;
    m_goesOn = goesOn;
    if (isFirst)
        m_first = m_last = 0;
}

void CEditSteps::end()
{
    m_isStep = m_goesOn = false;
}

void CEditSteps::pushed(int before, int after)
{
    if (!m_isStep)
        return;
    if (m_first == m_last || m_last != before)
        m_first = before;
    m_last = after;
}

bool CEditSteps::goesOn(const QUndoStack &stack) const
{
    return m_isStep && m_goesOn && m_first != m_last && stack.index() == m_last &&
           stack.cleanIndex() != m_last;
}

void CEditSteps::undoLast(QUndoStack *stack)
{
    stack->undo();
    --m_last;
    m_goesOn = false;
}

void CEditSteps::takeBack(QUndoStack *stack)
{
    if (m_first != m_last && stack->index() == m_last)
        stack->setIndex(m_first);
    m_first = m_last = 0;
}
