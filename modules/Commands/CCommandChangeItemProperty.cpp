#include "CCommandChangeItemProperty.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "PropertyKey.h"
#include "ShownText.h"

CCommandChangeItemProperty::CCommandChangeItemProperty(CItemModel *item, const QString &key,
                                                       const QVariant &newValue,
                                                       const QVariant &oldValue,
                                                       QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Change Property %1 %2")
                       .arg(ShownText::name(item->name()), ShownText::name(key)),
                   parent),
      m_item(item),
      m_key(key),
      m_newValue(newValue),
      m_oldValue(oldValue)
{
}

void CCommandChangeItemProperty::apply(const QVariant &value)
{
    // The project may have gone to another folder since the value was taken.
    const CProjectModel *project = CImagePlaces::isPlace(m_key) ? m_item->project() : nullptr;
    m_item->setProperty(m_key, project ? project->today(value) : value, CItemModel::Notify::Yes);
}
