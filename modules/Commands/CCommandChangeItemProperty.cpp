#include "CCommandChangeItemProperty.h"

#include "CItemModel.h"
#include "PropertyKey.h"

CCommandChangeItemProperty::CCommandChangeItemProperty(CItemModel *item, const QString &key,
                                                       const QVariant &newValue,
                                                       const QVariant &oldValue,
                                                       QUndoCommand *parent)
    : QUndoCommand(
          QObject::tr("Change Property %1 %2").arg(item->propertyText(PropertyKey::Name), key),
          parent),
      m_item(item),
      m_key(key),
      m_newValue(newValue),
      m_oldValue(oldValue)
{
}

void CCommandChangeItemProperty::apply(const QVariant &value)
{
    m_item->setProperty(m_key, value, CItemModel::Notify::Yes);
}
