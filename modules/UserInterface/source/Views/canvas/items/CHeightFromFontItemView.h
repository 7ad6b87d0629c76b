#pragma once

#include "CItemView.h"

/// A widget whose height follows from its font and not from a property.
class CHeightFromFontItemView final : public CItemView
{
    Q_OBJECT

public:
    CHeightFromFontItemView(CItemModel *item, const ICanvas &canvas);

    /// The height that a font of the chip stands for, pixels.
    static int heightOfFont(int font);

protected:
    QRectF frameOfItem() const override;
};
