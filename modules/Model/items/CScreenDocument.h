#pragma once

#include "CItemDocument.h"

/// Screens: texts as their document gave them.
class CScreenDocument final : public CItemDocument
{
public:
    QVector<const CWidgetProperty *> saved(const CItemModel &item) const override;

protected:
    void take(CItemModel &item, const ItemAttributes &attributes) const override;
};
