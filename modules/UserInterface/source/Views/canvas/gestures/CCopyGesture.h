#pragma once

#include "CGesture.h"

#include <QUndoCommand>
#include <QVector>

#include <functional>
#include <memory>

/// A drag with Alt: copies of the selected items come into being when the pointer has left the
/// place of the press, and are dragged; what they are copies of stays. One step in all. Copies that
/// are left where they came from are no copies.
class CCopyGesture final : public CGesture
{
public:
    struct SCopies
    {
        QVector<CItemModel *> items;
        std::unique_ptr<QUndoCommand> command; ///< which puts them onto the screen
    };
    using Copy = std::function<SCopies()>;
    /// Chooses the copies, which are on the screen now. The gesture that moves them.
    using Move = std::function<std::unique_ptr<CGesture>(const QVector<CItemModel *> &)>;
    /// The items to be selected when it is over: the copies or, when it was given up, null.
    using Over = std::function<void(const QVector<CItemModel *> *)>;

    CCopyGesture(Copy copy, Move move, Over over);
    ~CCopyGesture() override;

    void start(const SGesturePointer &press) override { m_press = press; }
    QString update(const SGesturePointer &pointer) override;
    void commit() override;
    void cancel() override;

private:
    bool begin();

    const Copy m_copy;
    const Move m_moveOf;
    const Over m_over;
    SGesturePointer m_press;
    SCopies m_copies;
    std::unique_ptr<CGesture> m_move;
    bool m_isOver = false;
};
