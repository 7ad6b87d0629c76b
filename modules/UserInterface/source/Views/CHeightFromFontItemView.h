#pragma once

#include "CItemView.h"

/// A widget whose height follows from its font and not from a property.
class CHeightFromFontItemView final : public CItemView
{
    Q_OBJECT

public:
    explicit CHeightFromFontItemView(CItemModel *item);

    /// The height that a font of the chip stands for, pixels.
    static int heightOfFont(int font);

protected:
    QRectF frameOfItem() const override;
};
