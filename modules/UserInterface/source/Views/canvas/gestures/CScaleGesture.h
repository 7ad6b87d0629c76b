#pragma once

#include "CGesture.h"

#include <QVector>

#include <memory>

class CItemScale;
class CResizeRule;
class CSnapping;

/// A drag of one of the handles about several items. Shift keeps the proportions, Alt the centre.
class CScaleGesture final : public CGesture
{
public:
    /// `handle`: as CResizeHandle::index().
    CScaleGesture(const QVector<CItemModel *> &items, int handle, CSnapping &snapping);
    ~CScaleGesture() override;

    void start(const SGesturePointer &press) override;
    QString update(const SGesturePointer &pointer) override;
    void commit() override;
    void cancel() override;

private:
    const std::unique_ptr<CItemScale> m_scale;
    const int m_handle;
    CSnapping &m_snapping;
    QPointF m_press; ///< scene units
    std::unique_ptr<CResizeRule> m_rule;
};
