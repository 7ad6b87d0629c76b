#include "CStartValues.h"

#include "CCommandChangeItemProperty.h"
#include "CItemModel.h"
#include "PropertyKey.h"

#include <QUndoStack>

#include <algorithm>

CStartValues::CStartValues(CItemModel *item, const QStringList &keys) : m_item(item)
{
    for (const QString &key : keys) {
        if (item->hasProperty(key))
            m_values.append({key, item->propertyValue(key)});
    }
}

const QStringList &CStartValues::geometryKeys()
{
    static const QStringList keys = {
        PropertyKey::X,     PropertyKey::Y,      PropertyKey::Radius, PropertyKey::PointSize,
        PropertyKey::Width, PropertyKey::Height, PropertyKey::X2,     PropertyKey::Y2};
    return keys;
}

bool CStartValues::isAnyChanged() const
{
    return std::any_of(m_values.begin(), m_values.end(), [this](const auto &each) {
        return m_item->propertyValue(each.first).toString() != each.second.toString();
    });
}

void CStartValues::restore() const
{
    // Backwards, as an undo does: sizes that follow from each other end as they were.
    for (auto each = m_values.crbegin(); each != m_values.crend(); ++each) {
        if (m_item->propertyValue(each->first) != each->second)
            m_item->setProperty(each->first, each->second);
    }
}

QVector<QVariant> CStartValues::reached() const
{
    QVector<QVariant> reached;
    for (const auto &each : m_values)
        reached.append(m_item->propertyValue(each.first));
    return reached;
}

void CStartValues::record(const QVector<QVariant> &reached, QUndoStack &stack) const
{
    const QVector<QVariant> before = this->reached();
    for (int index = 0; index < m_values.size(); ++index) {
        if (reached.at(index).toString() != before.at(index).toString())
            stack.push(new CCommandChangeItemProperty(m_item, m_values.at(index).first,
                                                      reached.at(index), before.at(index)));
    }
}
