#include "CItemDocument.h"

#include "CGroupDocument.h"
#include "CItemParts.h"
#include "CProjectModel.h"
#include "CScreenDocument.h"
#include "CWidgetDocument.h"

#include <QScopedValueRollback>

#include <algorithm>

const CItemDocument &CItemDocument::of(const CItemModel &item)
{
    static const CScreenDocument screen;
    static const CGroupDocument group;
    static const CWidgetDocument widget;
    switch (item.kind()) {
    case CItemModel::Kind::Screen:
        return screen;
    case CItemModel::Kind::Group:
        return group;
    case CItemModel::Kind::Widget:
        break;
    }
    return widget;
}

void CItemDocument::load(CItemModel &item, const ItemAttributes &attributes) const
{
    const QScopedValueRollback<bool> loading(item.m_parts->isLoading, true);
    take(item, attributes);
}

QString CItemDocument::savedText(const CItemModel &item, const CWidgetProperty &property,
                                 FolderForm folders)
{
    const CProjectModel *owner = CImagePlaces::isPlace(property.key()) ? item.project() : nullptr;
    if (!owner)
        return property.text();
    return folders == FolderForm::Relative ? owner->storedFolder(property.text())
                                           : owner->absoluteFolder(property.text());
}

QByteArray CItemDocument::savedTextUtf8(const CItemModel &item, const CWidgetProperty &property,
                                        FolderForm folders)
{
    return CImagePlaces::isPlace(property.key()) ? savedText(item, property, folders).toUtf8()
                                                 : property.textUtf8();
}

CPropertyTable &CItemDocument::tableOf(CItemModel &item)
{
    return item.m_parts->table;
}

const CPropertyTable &CItemDocument::tableOf(const CItemModel &item)
{
    return item.m_parts->table;
}

bool CItemDocument::isDerivedFrom(const QString &name)
{
    return CItemModel::isDerivedFrom(name);
}

ItemAttributes CItemDocument::sortedByName(const ItemAttributes &attributes)
{
    ItemAttributes sorted = attributes;
    std::sort(sorted.begin(), sorted.end(),
              [](const ItemAttribute &a, const ItemAttribute &b) { return a.name < b.name; });
    return sorted;
}
