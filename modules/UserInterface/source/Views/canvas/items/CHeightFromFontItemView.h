#pragma once

#include "CItemView.h"

/// A widget whose height follows from its font and not from a property; its frame knows how.
class CHeightFromFontItemView final : public CItemView
{
    Q_OBJECT

public:
    using CItemView::CItemView;
};
