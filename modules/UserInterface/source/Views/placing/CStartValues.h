#pragma once

#include <QPair>
#include <QString>
#include <QVariant>
#include <QVector>

class CItemModel;
class QUndoStack;

/// The properties of one item as they are before a gesture: what a cancelled gesture goes back to,
/// and what a finished one is recorded against. The item must outlive it.
class CStartValues
{
public:
    /// Remembers those of the properties that the item has.
    CStartValues(CItemModel *item, const QStringList &keys);

    CItemModel *item() const { return m_item; }
    bool isAnyChanged() const;
    /// Puts everything back exactly as it was.
    void restore() const;
    /// The values of now, in the order in which they were remembered.
    QVector<QVariant> reached() const;
    /// Records a command for each property that was to reach another value. To be called once all
    /// is put back; what was done before may have brought the item along, as a group does.
    void record(const QVector<QVariant> &reached, QUndoStack &stack) const;

    /// Position and size, in the order in which a resize records them.
    static const QStringList &geometryKeys();

private:
    CItemModel *m_item;
    QVector<QPair<QString, QVariant>> m_values;
};
