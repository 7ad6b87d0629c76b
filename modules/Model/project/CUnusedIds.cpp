#include "CUnusedIds.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "PropertyKey.h"

CUnusedIds::CUnusedIds(const CProjectModel &project)
{
    collect(*project.invisibleRootItem());
}

void CUnusedIds::collect(const QStandardItem &parent)
{
    for (int row = 0; row < parent.rowCount(); ++row) {
        const CItemModel *item = CItemModel::fromItem(parent.child(row));
        if (!item)
            continue;
        if (item->hasProperty(PropertyKey::Id))
            m_taken.insert(item->id());
        collect(*item);
    }
}

quint32 CUnusedIds::take()
{
    while (m_taken.contains(m_next))
        ++m_next;
    return m_next++;
}

void CUnusedIds::giveTo(CItemModel &item)
{
    if (item.hasProperty(PropertyKey::Id))
        item.setProperty(PropertyKey::Id, static_cast<int>(take()), CItemModel::Notify::No);
    for (int row = 0; row < item.rowCount(); ++row) {
        if (CItemModel *child = item.childItem(row))
            giveTo(*child);
    }
}
