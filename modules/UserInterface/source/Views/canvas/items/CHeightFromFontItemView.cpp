#include "CHeightFromFontItemView.h"

#include "CItemModel.h"

#include <array>

namespace {
constexpr int FirstFont = 16;
constexpr int HeightOfUnknownFont = 49;
constexpr std::array<int, 19> Heights = {8,  8,  16, 16, 13, 17, 20, 22, 29, 38,
                                         16, 20, 25, 28, 36, 49, 63, 83, 108};
} // namespace

CHeightFromFontItemView::CHeightFromFontItemView(CItemModel *item, const ICanvas &canvas)
    : CItemView(item, canvas)
{
    updateBounds();
}

int CHeightFromFontItemView::heightOfFont(int font)
{
    const int index = font - FirstFont;
    return index >= 0 && index < static_cast<int>(Heights.size())
               ? Heights[static_cast<size_t>(index)]
               : HeightOfUnknownFont;
}

QRectF CHeightFromFontItemView::frameOfItem() const
{
    const int height = heightOfFont(item()->fontHandle());
    // Starts above the position, as such widgets are drawn.
    return QRectF(0, -(10 * height) / 32, item()->width(), (20 * height) / 16);
}
