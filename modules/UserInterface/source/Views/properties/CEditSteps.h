#pragma once

class QUndoStack;

/// Which commands the steps of one edit have become, so that Escape takes them back as if they had
/// not been made. Commands are known by their place on the stack.
class CEditSteps
{
public:
    /// What is pushed until end() is one step; `isFirst`: of a new run; `goesOn`: with the one
    /// before.
    void begin(bool isFirst, bool goesOn);
    void end();
    /// An edit has moved the stack's index.
    void pushed(int before, int after);
    /// Whether what is to be pushed goes on with the last command of the stack, which is not saved:
    /// then undoLast() and a command that does both make one of the two.
    bool goesOn(const QUndoStack &stack) const;
    void undoLast(QUndoStack *stack);
    /// Undoes the run, unless something else has been done or undone since.
    void takeBack(QUndoStack *stack);

private:
    int m_first = 0; ///< the stack's index before the run
    int m_last = 0;  ///< and after it
    bool m_isStep = false;
    bool m_goesOn = false;
};
