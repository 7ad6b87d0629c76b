#include "ItemViewFactory.h"

#include "CHeightFromFontItemView.h"
#include "CItemModel.h"
#include "CMultiPointItemView.h"
#include "CTextItemView.h"
#include "CWidgetGroupView.h"

CItemView *ItemViewFactory::create(CItemModel *item)
{
    if (item->kind() == CItemModel::Kind::Group)
        return new CWidgetGroupView(item);
    if (item->hasPointList())
        return new CMultiPointItemView(item);
    if (item->isHeightFromFont())
        return new CHeightFromFontItemView(item);
    if (item->itemTypeName() == QLatin1String("Kiv_Text_T"))
        return new CTextItemView(item, CTextItemView::Mode::Text);
    if (item->itemTypeName() == QLatin1String("Kiv_Number_T"))
        return new CTextItemView(item, CTextItemView::Mode::Number);
    return new CItemView(item);
}
