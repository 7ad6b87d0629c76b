#include "CCopyGesture.h"

#include "CItemModel.h"
#include "CProjectModel.h"

#include <QUndoStack>

#include <utility>

namespace {
constexpr int DragDistance = 3; ///< screen pixels; a press that trembles is no drag
} // namespace

CCopyGesture::CCopyGesture(Copy copy, Move move, Over over)
    : m_copy(std::move(copy)), m_moveOf(std::move(move)), m_over(std::move(over))
{
}

CCopyGesture::~CCopyGesture() = default;

bool CCopyGesture::begin()
{
    m_copies = m_copy();
    if (m_copies.items.isEmpty()) {
        m_isOver = true;
        return false;
    }
    // Not by the stack yet: a drag that is given up must leave what could be redone.
    m_copies.command->redo();
    m_recorder.begin(m_copies.items, CStartValues::geometryKeys());
    m_move = m_moveOf(m_copies.items);
    m_move->start(m_press);
    return true;
}

QString CCopyGesture::update(const SGesturePointer &pointer)
{
    if (m_isOver || (!m_move && (pointer.travelled < DragDistance || !begin())))
        return {};
    return m_move->update(pointer);
}

void CCopyGesture::commit()
{
    if (m_recorder.changedItems().isEmpty()) {
        cancel();
        return;
    }
    m_isOver = true;
    m_recorder = CGestureRecorder();
    m_move.reset(); // where it has left them
    QUndoStack *stack = m_copies.items.constFirst()->project()->undoStack();
    m_copies.command->undo();
    stack->push(m_copies.command.release());
    m_over(&m_copies.items);
}

void CCopyGesture::cancel()
{
    m_isOver = true;
    if (!isUnderWay())
        return;
    m_recorder = CGestureRecorder();
    m_move.reset();
    m_copies.command->undo();
    m_over(nullptr);
}
