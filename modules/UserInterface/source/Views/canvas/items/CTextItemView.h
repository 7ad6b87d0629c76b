#pragma once

#include "CItemView.h"

/// A text or a number: one that has no size of its own follows what it shows.
class CTextItemView final : public CItemView
{
    Q_OBJECT

public:
    using CItemView::CItemView;

    void onPropertyChanged(const QString &key) override;
};
