#pragma once

#include "CWidgetProperty.h"

#include <QHash>
#include <QVector>

/// The properties of an item by name: what is stored, and nothing that follows from it.
class CPropertyTable
{
public:
    using Set = QHash<QString, CWidgetProperty>; ///< shared until the first change

    const Set &all() const { return m_properties; }
    void setAll(const Set &properties);
    bool contains(const QString &name) const { return m_properties.contains(name); }
    /// Invalid when there is no such property.
    QVariant value(const QString &name) const;
    /// The canonical text; empty when there is no such property.
    QString text(const QString &name) const;
    const CWidgetProperty *find(const QString &name) const; ///< null when there is none

    /// For a change; null when there is none.
    CWidgetProperty *findForChange(const QString &name);
    /// In place of one of the same name.
    void insert(const CWidgetProperty &property);
    void remove(const QString &name);
    /// Limits and entries become those of the definitions; values stay.
    void takeDefinitions(const Set &definitions);

    /// By number, 0 to all().size() - 1; the order and the pointers hold until the next change.
    CWidgetProperty *at(int index);
    /// Names of the given order that there are, then all others sorted.
    QVector<const CWidgetProperty *> ordered(const QStringList &order) const;

private:
    Set m_properties;
    QVector<CWidgetProperty *> m_index; ///< m_properties by number; empty when out of date
};
