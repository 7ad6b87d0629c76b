#include "CTextItemView.h"

#include "ItemText.h"

void CTextItemView::onPropertyChanged(const QString &key)
{
    CItemView::onPropertyChanged(key);
    if (key == ItemText::keyOf(*item()))
        updateBounds();
}
