#pragma once

#include "CItemModel.h"

/// One widget. Its type decides, through the library, which properties it has; of a type that the
/// library lacks it keeps the attributes that its document gives it.
class CWidgetModel final : public CItemModel
{
public:
    /// With the library's properties at their defaults. The library may be null: no properties.
    CWidgetModel(const QString &typeName, const CWidgetLibraryModel *library,
                 IPropertyChangeObserver *observer);

    void loadFromElement(const QDomElement &element) override;
    void saveToElement(QDomElement &element) const override;

protected:
    CItemModel *cloneEmpty() const override;
    bool isBuiltIn(const QString &name) const override;
};
