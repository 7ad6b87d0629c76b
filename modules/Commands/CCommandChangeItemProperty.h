#pragma once

#include <QString>
#include <QUndoCommand>
#include <QVariant>

class CItemModel;

/// Sets one property of one item and puts the old value back on undo.
/// The old value is handed in because a live gesture has changed the item before the push.
class CCommandChangeItemProperty final : public QUndoCommand
{
public:
    CCommandChangeItemProperty(CItemModel *item, const QString &key, const QVariant &newValue,
                               const QVariant &oldValue, QUndoCommand *parent = nullptr);

    void redo() override { apply(m_newValue); }
    void undo() override { apply(m_oldValue); }

    // For who tells what the step does.
    const CItemModel *item() const { return m_item; }
    const QString &key() const { return m_key; }
    const QVariant &oldValue() const { return m_oldValue; }
    const QVariant &newValue() const { return m_newValue; }

private:
    void apply(const QVariant &value);

    CItemModel *const m_item; ///< not owned; lives in the project that owns the stack
    const QString m_key;
    const QVariant m_newValue;
    const QVariant m_oldValue;
};
