#pragma once

#include "CGesture.h"

/// A rubber band, which the view draws and selects with. It changes no item.
class CBandGesture final : public CGesture
{
public:
    /// A band that began on a locked item leaves out locked ones: that item is the ground for what
    /// lies before it.
    explicit CBandGesture(bool isOnLocked) : m_isOnLocked(isOnLocked) {}

    void start(const SGesturePointer &) override {}
    QString update(const SGesturePointer &) override { return {}; }
    void commit() override {}
    void cancel() override {}
    bool leavesOutLocked() const override { return m_isOnLocked; }

private:
    const bool m_isOnLocked;
};
