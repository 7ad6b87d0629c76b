#pragma once

#include "CItemDocument.h"

/// Widgets: their kind's properties in the library's order, and whatever else their document gave
/// them.
class CWidgetDocument final : public CItemDocument
{
public:
    QVector<const CWidgetProperty *> saved(const CItemModel &item) const override;
    bool canHaveChildren() const override { return false; }

protected:
    void take(CItemModel &item, const ItemAttributes &attributes) const override;
};
