#pragma once

#include "CGesture.h"

class CMultiPointItemView;
class CSnapping;

/// A drag of one point of an item that is drawn through several; with Control, its removal.
class CPointGesture final : public CGesture
{
public:
    CPointGesture(CMultiPointItemView *view, int index, CSnapping &snapping);

    void start(const SGesturePointer &press) override;
    QString update(const SGesturePointer &pointer) override;
    void commit() override;
    void cancel() override;

private:
    CMultiPointItemView *const m_view; ///< not owned
    const int m_index;
    CSnapping &m_snapping;
    QPointF m_start; ///< of the point, in the view's coordinates
    QPointF m_press; ///< scene units
};
