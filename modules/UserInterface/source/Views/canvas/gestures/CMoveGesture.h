#pragma once

#include "CGesture.h"

#include <QRectF>
#include <QVector>

#include <functional>

class CItemView;
class CSnapping;

/// A drag of the selected items, which begins when the pointer has left the place of the press.
/// While Shift is held they wait. Locked items stay.
class CMoveGesture final : public CGesture
{
public:
    /// Where a place snaps to while these items move.
    using Snap = std::function<QPointF(const QPointF &, const QVector<CItemModel *> &)>;
    /// Takes the items, which stand at their old places again, and where they were left.
    using Moved = std::function<void(const QVector<CItemModel *> &, const QVector<QPointF> &)>;

    /// `others`: selected too. Without `snap`, the items follow the pointer as `snapping` allows.
    CMoveGesture(CItemView *pressed, const QVector<CItemView *> &others, CSnapping &snapping,
                 Snap snap, Moved moved);

    void start(const SGesturePointer &press) override;
    QString update(const SGesturePointer &pointer) override;
    void commit() override;
    void cancel() override;

private:
    struct Start
    {
        CItemView *view; ///< not owned
        QPointF place;   ///< of the view
        QPointF position;
        QPointF second; ///< of items between two points
    };
    bool begin();
    QVector<CItemModel *> items() const;
    void moveTo(const QPointF &delta) const;
    void moveSnapped(const QPointF &pointer) const;
    void moveInLine(const SGesturePointer &pointer) const;
    void putBack();

    QVector<Start> m_starts; ///< the pressed one first
    QPointF m_press;         ///< scene units
    QRectF m_frame;          ///< of all that move, at the start
    bool m_isOver = false;
    CSnapping &m_snapping;
    const Snap m_snap;
    const Moved m_moved;
};
