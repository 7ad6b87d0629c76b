#pragma once

#include "CItemView.h"

/// A group: its frame holds the frames of all its members. It is hit where one of them is seen, so
/// that gaps let through to what lies behind.
class CWidgetGroupView final : public CItemView
{
    Q_OBJECT

public:
    using CItemView::CItemView;

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    bool contains(const QPointF &point) const override;
    bool collidesWithPath(const QPainterPath &path, Qt::ItemSelectionMode mode) const override;
};
