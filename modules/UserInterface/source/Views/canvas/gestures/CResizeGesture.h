#pragma once

#include "CGesture.h"
#include "ItemResize.h"

#include <memory>

class CItemView;
class CResizeRule;
class CSnapping;

/// A drag of one of the handles about an item. Shift keeps the proportions, Alt the centre.
class CResizeGesture final : public CGesture
{
public:
    /// `handle`: as CResizeHandle::index().
    CResizeGesture(CItemView *view, int handle, CSnapping &snapping);
    ~CResizeGesture() override;

    void start(const SGesturePointer &press) override;
    QString update(const SGesturePointer &pointer) override;
    void commit() override;
    void cancel() override;

private:
    CItemView *const m_view; ///< not owned
    const int m_handle;
    CSnapping &m_snapping;
    QPointF m_press; ///< scene units
    ItemResize::SStart m_start;
    std::unique_ptr<CResizeRule> m_rule;
};
