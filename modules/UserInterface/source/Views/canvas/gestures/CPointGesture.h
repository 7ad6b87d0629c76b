#pragma once

#include "CGesture.h"

class CMultiPointItemView;

/// A drag of one point of an item that is drawn through several; with Control, its removal.
class CPointGesture final : public CGesture
{
public:
    CPointGesture(CMultiPointItemView *view, int index);

    void start(const SGesturePointer &press) override;
    QString update(const SGesturePointer &pointer) override;
    void commit() override;
    void cancel() override;

private:
    CMultiPointItemView *const m_view; ///< not owned
    const int m_index;
    QPointF m_grip; ///< from the point to the press, scene units
};
