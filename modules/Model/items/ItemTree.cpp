#include "ItemTree.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "PropertyKey.h"

void forEachItem(CItemModel &root, const std::function<void(CItemModel &)> &visit)
{
    visit(root);
    for (int row = 0; row < root.rowCount(); ++row) {
        if (CItemModel *child = root.childItem(row))
            forEachItem(*child, visit);
    }
}

void forEachItem(const CItemModel &root, const std::function<void(const CItemModel &)> &visit)
{
    findItem(root, [&visit](const CItemModel &item) {
        visit(item);
        return false;
    });
}

void forEachItem(const CProjectModel &project, const std::function<void(CItemModel &)> &visit)
{
    for (int row = 0; row < project.rowCount(); ++row) {
        if (CItemModel *item = CItemModel::fromItem(project.item(row)))
            forEachItem(*item, visit);
    }
}

const CItemModel *findItem(const CItemModel &root, const ItemTest &isWanted)
{
    if (isWanted(root))
        return &root;
    for (int row = 0; row < root.rowCount(); ++row) {
        const CItemModel *child = root.childItem(row);
        if (const CItemModel *found = child ? findItem(*child, isWanted) : nullptr)
            return found;
    }
    return nullptr;
}

CItemModel *findItem(CItemModel &root, const ItemTest &isWanted)
{
    return const_cast<CItemModel *>(findItem(static_cast<const CItemModel &>(root), isWanted));
}

SItemCounts countItems(const CItemModel &screen)
{
    SItemCounts counts;
    forEachItem(screen, [&counts](const CItemModel &item) {
        counts.hidden += item.isHidden() && !item.parentItem()->isUnderHidden() ? 1 : 0;
        if (item.kind() != CItemModel::Kind::Widget)
            return;
        ++counts.widgets;
        counts.bitmaps += item.propertyText(PropertyKey::BaseName).isEmpty() ? 0 : 1;
    });
    return counts;
}
