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
    QVector<const CWidgetProperty *> savedProperties() const override;
    bool canHaveChildren() const override { return false; }

protected:
    void takeAttributes(const ItemAttributes &attributes) override;
    CItemModel *cloneEmpty() const override;
    bool isBuiltIn(const QString &name) const override;

private:
    const QString &keyOf(const QString &attribute) const;
    int orderOf(const QString &name) const;
    bool isSaved(const CWidgetProperty &property) const;
};
