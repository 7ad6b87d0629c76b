#include "CUnusedIds.h"

#include "CItemModel.h"
#include "ItemTree.h"
#include "PropertyKey.h"

CUnusedIds::CUnusedIds(const CProjectModel &project)
{
    forEachItem(project, [this](const CItemModel &each) {
        if (each.hasProperty(PropertyKey::Id))
            m_taken.insert(each.id());
    });
}

quint32 CUnusedIds::take()
{
    while (m_taken.contains(m_next))
        ++m_next;
    return m_next++;
}

void CUnusedIds::giveTo(CItemModel &item)
{
    forEachItem(item, [this](CItemModel &each) {
        if (each.hasProperty(PropertyKey::Id))
            each.setProperty(PropertyKey::Id, static_cast<int>(take()), CItemModel::Notify::No);
    });
}
