#include "CModelIterator.h"

#include "CItemModel.h"

namespace {
CItemModel *lastDescendant(CItemModel *item)
{
    while (CItemModel *last = item->childItem(item->rowCount() - 1))
        item = last;
    return item;
}
} // namespace

CModelIterator::CModelIterator(CItemModel *root) : m_root(root), m_current(root)
{
}

CModelIterator::~CModelIterator() = default;

void CModelIterator::setRoot(CItemModel *root)
{
    m_root = root;
    m_current = root;
    m_started = false;
}

void CModelIterator::next()
{
    if (!m_current)
        return;
    if (!m_started) {
        m_started = true;
        m_current = lastDescendant(m_root);
    } else {
        CItemModel *parent = m_current->parentItem();
        CItemModel *previous = parent->childItem(m_current->row() - 1);
        m_current = previous ? lastDescendant(previous) : parent;
    }
    if (m_current == m_root)
        m_current = nullptr;
}

IModelItem *CModelIterator::current()
{
    return m_current;
}
