#include "CLiveEdit.h"

#include "PropertyStep.h"

#include "CItemModel.h"

CLiveEdit::CLiveEdit(const QVector<CItemModel *> &items, const QString &key)
    : m_items(items), m_key(key)
{
    for (const CItemModel *each : items)
        m_starts.append(each->propertyValue(key));
}

CLiveEdit::~CLiveEdit()
{
    cancel();
}

void CLiveEdit::show(int index, const QVariant &value)
{
    CItemModel *item = m_items.at(index);
    if (item->propertyValue(m_key) != value)
        item->setProperty(m_key, value);
}

void CLiveEdit::keep(const QString &stepText)
{
    PropertyStep::Changes changes;
    for (CItemModel *each : qAsConst(m_items))
        changes.append({each, m_key, each->propertyValue(m_key)});
    cancel();
    PropertyStep::push(changes, stepText);
}

void CLiveEdit::cancel()
{
    for (int index = 0; index < m_items.size(); ++index)
        show(index, m_starts.at(index));
    m_items.clear();
}
