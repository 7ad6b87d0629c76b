#pragma once

#include <QAbstractListModel>
#include <QPointer>

class QUndoStack;

/// The states of a project as rows: the first before all steps, then one after each. Follows the
/// stack.
class CHistoryModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum ERole {
        UndoneRole = Qt::UserRole, ///< whether the step is one that could be redone
        SavedRole                  ///< whether the state is the one that was saved
    };

    explicit CHistoryModel(QObject *parent = nullptr);

    void setStack(QUndoStack *stack); ///< not owned; null for none
    int current() const;              ///< row of the state that the project is in; -1 without one
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

Q_SIGNALS:
    void currentChanged();

private:
    void follow();

    QPointer<QUndoStack> m_stack;
    int m_rows = 0; ///< that are told of
};
