#pragma once

#include "CHistoryModel.h"

#include <QListView>

class QUndoStack;

/// The steps of a project by name: the state that it is in is selected, the saved one marked, what
/// could be redone faint. A click, or Enter, goes there.
class CHistoryView final : public QListView
{
    Q_OBJECT

public:
    explicit CHistoryView(QWidget *parent = nullptr);

    void setStack(QUndoStack *stack); ///< not owned; null for none

Q_SIGNALS:
    /// Before the project goes to another state: for what is typed but not a step yet.
    void aboutToGo();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void go(const QModelIndex &index);
    void showCurrent();

    CHistoryModel m_model;
    QPointer<QUndoStack> m_stack;
};
