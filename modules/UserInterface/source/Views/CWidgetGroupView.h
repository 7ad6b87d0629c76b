#pragma once

#include "CItemView.h"

/// A group: its frame holds the frames of all its members.
class CWidgetGroupView final : public CItemView
{
    Q_OBJECT

public:
    using CItemView::CItemView;

protected:
    QRectF frameOfItem() const override;
};
