#include "CItemSequence.h"

#include <algorithm>

CItemSequence::CItemSequence(const QList<CItemModel *> &items)
{
    m_numbers.reserve(items.size());
    for (CItemModel *each : items)
        append(each);
}

QList<CItemModel *> CItemSequence::list() const
{
    QList<CItemModel *> items = m_numbers.keys();
    std::sort(items.begin(), items.end(), [this](CItemModel *left, CItemModel *right) {
        return m_numbers.value(left) < m_numbers.value(right);
    });
    return items;
}

void CItemSequence::append(CItemModel *item)
{
    m_numbers.insert(item, m_next++);
}
