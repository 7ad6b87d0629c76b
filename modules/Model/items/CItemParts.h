#pragma once

#include "CItemGeometry.h"
#include "CItemModel.h"
#include "CPropertyTable.h"

/// What an item is made of, and how the geometry gets at the properties. For CItemModel and
/// CItemDocument alone.
struct CItemModel::SParts final : public CItemGeometry::IProperties
{
    explicit SParts(CItemModel &owner) : item(owner) {}

    void writeBack(const QString &name, const QVariant &value, bool notify) override;
    void storeDerived(const QString &name, double size) override;
    /// Whether the text of a document is being taken that the library does not know: it stays as it
    /// was written. Sizes of a known kind that are given twice are made to agree.
    bool keepsText(const CWidgetProperty &property) const
    {
        return isLoading && property.propertyType() == PropertyType::String;
    }

    CItemModel &item;
    CPropertyTable table;
    CItemGeometry geometry;
    bool isLoading = false; ///< texts of a document are being taken and kept as they are
};
