#pragma once

#include <QHash>
#include <QList>

class CItemModel;

/// Items in the order in which they came. One of many leaves as fast as one of few. Not owned, and
/// only compared.
class CItemSequence
{
public:
    CItemSequence() = default;
    explicit CItemSequence(const QList<CItemModel *> &items);

    bool isEmpty() const { return m_numbers.isEmpty(); }
    bool contains(CItemModel *item) const { return m_numbers.contains(item); }
    QList<CItemModel *> list() const;

    void append(CItemModel *item); ///< one that is here already comes last then
    void remove(CItemModel *item) { m_numbers.remove(item); }
    void clear() { m_numbers.clear(); }

private:
    QHash<CItemModel *, quint64> m_numbers;
    quint64 m_next = 0;
};
