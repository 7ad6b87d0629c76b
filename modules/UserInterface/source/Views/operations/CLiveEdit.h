#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

class CItemModel;

/// One property of some items while it is being changed: what is tried is seen at once, and is
/// recorded as one step when it is kept. For drags on numbers and for colours that are being
/// chosen. The items must outlive it, and nothing else may change the property meanwhile.
class CLiveEdit
{
public:
    /// Of items of one project that have the property.
    CLiveEdit(const QVector<CItemModel *> &items, const QString &key);
    ~CLiveEdit(); ///< puts back what was neither kept nor cancelled

    const QVector<CItemModel *> &items() const { return m_items; }
    const QString &key() const { return m_key; }
    const QVariant &start(int index) const { return m_starts.at(index); }

    /// Shows the item so; never more than a try.
    void show(int index, const QVariant &value);

    // Each ends it.
    /// Records what is shown now as one step, unless all is as it was.
    void keep(const QString &stepText);
    /// Puts everything back exactly as it was.
    void cancel();

private:
    Q_DISABLE_COPY(CLiveEdit)

    QVector<CItemModel *> m_items;
    const QString m_key;
    QVector<QVariant> m_starts;
};
