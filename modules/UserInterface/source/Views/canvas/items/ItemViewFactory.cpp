#include "ItemViewFactory.h"

#include "CHeightFromFontItemView.h"
#include "CItemModel.h"
#include "CMultiPointItemView.h"
#include "CTextItemView.h"
#include "CWidgetGroupView.h"

CItemView *ItemViewFactory::create(CItemModel *item, const ICanvas &canvas)
{
    if (item->kind() == CItemModel::Kind::Group)
        return new CWidgetGroupView(item, canvas);
    if (item->hasPointList())
        return new CMultiPointItemView(item, canvas);
    if (item->isHeightFromFont())
        return new CHeightFromFontItemView(item, canvas);
    if (item->itemTypeName() == QLatin1String("Kiv_Text_T"))
        return new CTextItemView(item, canvas, CTextItemView::Mode::Text);
    if (item->itemTypeName() == QLatin1String("Kiv_Number_T"))
        return new CTextItemView(item, canvas, CTextItemView::Mode::Number);
    return new CItemView(item, canvas);
}
