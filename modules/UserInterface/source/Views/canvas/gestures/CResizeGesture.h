#pragma once

#include "CGesture.h"

#include <memory>

class CItemView;
class CResizeRule;

/// A drag of one of the handles about an item. Shift keeps the proportions, Alt the centre.
class CResizeGesture final : public CGesture
{
public:
    /// `handle`: as CResizeHandle::index().
    CResizeGesture(CItemView *view, int handle);
    ~CResizeGesture() override;

    void start(const SGesturePointer &press) override;
    QString update(const SGesturePointer &pointer) override;
    void commit() override;
    void cancel() override;

private:
    CItemView *const m_view; ///< not owned
    const int m_handle;
    QPointF m_press; ///< scene units
    std::unique_ptr<CResizeRule> m_rule;
};
