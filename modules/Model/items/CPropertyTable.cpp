#include "CPropertyTable.h"

#include <algorithm>

void CPropertyTable::setAll(const Set &properties)
{
    m_index.clear();
    m_properties = properties;
}

QVariant CPropertyTable::value(const QString &name) const
{
    const CWidgetProperty *property = find(name);
    return property ? property->value() : QVariant();
}

QString CPropertyTable::text(const QString &name) const
{
    const CWidgetProperty *property = find(name);
    return property ? property->text() : QString();
}

const CWidgetProperty *CPropertyTable::find(const QString &name) const
{
    const auto it = m_properties.constFind(name);
    return it == m_properties.constEnd() ? nullptr : &it.value();
}

CWidgetProperty *CPropertyTable::findForChange(const QString &name)
{
    m_index.clear(); // finding for a change may move shared properties
    const auto it = m_properties.find(name);
    return it == m_properties.end() ? nullptr : &it.value();
}

void CPropertyTable::insert(const CWidgetProperty &property)
{
    m_index.clear();
    m_properties.insert(property.key(), property);
}

void CPropertyTable::remove(const QString &name)
{
    m_index.clear();
    m_properties.remove(name);
}

void CPropertyTable::takeDefinitions(const Set &definitions)
{
    for (auto definition = definitions.begin(); definition != definitions.end(); ++definition) {
        if (CWidgetProperty *property = findForChange(definition.key()))
            property->takeDefinition(*definition);
    }
}

CWidgetProperty *CPropertyTable::at(int index)
{
    if (m_index.size() != m_properties.size()) {
        m_index.clear();
        m_index.reserve(m_properties.size());
        for (CWidgetProperty &each : m_properties)
            m_index.append(&each);
    }
    return m_index.at(index);
}

QVector<const CWidgetProperty *> CPropertyTable::ordered(const QStringList &order) const
{
    QVector<const CWidgetProperty *> ordered;
    ordered.reserve(m_properties.size());
    for (const QString &key : order) {
        if (const CWidgetProperty *property = find(key))
            ordered.append(property);
    }
    if (ordered.size() == m_properties.size())
        return ordered;

    const int known = ordered.size();
    for (const CWidgetProperty &each : m_properties) {
        if (!order.contains(each.key()))
            ordered.append(&each);
    }
    std::sort(
        ordered.begin() + known, ordered.end(),
        [](const CWidgetProperty *a, const CWidgetProperty *b) { return a->key() < b->key(); });
    return ordered;
}
