#pragma once

#include "CItemView.h"

/// A group: its frame holds all its members.
class CWidgetGroupView final : public CItemView
{
    Q_OBJECT

public:
    using CItemView::CItemView;
};
