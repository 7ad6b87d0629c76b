#pragma once

#include "CItemDocument.h"

/// Groups: name and position, then whatever else their document gave them.
class CGroupDocument final : public CItemDocument
{
public:
    QVector<const CWidgetProperty *> saved(const CItemModel &item) const override;

protected:
    void take(CItemModel &item, const ItemAttributes &attributes) const override;
};
