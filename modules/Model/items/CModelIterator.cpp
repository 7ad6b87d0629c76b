#include "CModelIterator.h"

#include "CItemModel.h"

CModelIterator::CModelIterator(CItemModel *root) : m_root(root), m_current(root)
{
}

CModelIterator::~CModelIterator() = default;

/// The last child above a row that the walk leads to; null for none.
CItemModel *CModelIterator::lastBefore(CItemModel *parent, int row) const
{
    CItemModel *child = parent->childItem(--row);
    while (child && m_hidden == EHidden::LeftOut && child->isHidden())
        child = parent->childItem(--row);
    return child;
}

CItemModel *CModelIterator::lastDescendant(CItemModel *item) const
{
    while (CItemModel *last = lastBefore(item, item->rowCount()))
        item = last;
    return item;
}

void CModelIterator::setRoot(CItemModel *root, EHidden hidden)
{
    m_hidden = hidden;
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
        CItemModel *previous = lastBefore(parent, m_current->row());
        m_current = previous ? lastDescendant(previous) : parent;
    }
    if (m_current == m_root)
        m_current = nullptr;
}

IModelItem *CModelIterator::current()
{
    return m_current;
}
