#pragma once

#include "CGesture.h"

#include <memory>

class CItemView;
class CRotateRule;

/// A drag of the handle that turns an item about its centre. Shift turns in steps.
class CRotateGesture final : public CGesture
{
public:
    explicit CRotateGesture(CItemView *view);
    ~CRotateGesture() override;

    void start(const SGesturePointer &press) override;
    QString update(const SGesturePointer &pointer) override;
    void commit() override;
    void cancel() override;

private:
    CItemView *const m_view; ///< not owned
    std::unique_ptr<CRotateRule> m_rule;
};
