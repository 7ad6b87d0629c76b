#include "CRemovedItems.h"

#include "CItemModel.h"

#include <QStandardItemModel>

CRemovedItems::CRemovedItems(QObject *project) : QObject(project)
{
}

CRemovedItems::~CRemovedItems()
{
    qDeleteAll(m_items);
}

CRemovedItems &CRemovedItems::of(QStandardItemModel *project)
{
    auto *kept = project->findChild<CRemovedItems *>(QString(), Qt::FindDirectChildrenOnly);
    return kept ? *kept : *new CRemovedItems(project);
}

void CRemovedItems::keep(CItemModel *item)
{
    m_items.insert(item);
}

void CRemovedItems::release(CItemModel *item)
{
    m_items.remove(item);
}
