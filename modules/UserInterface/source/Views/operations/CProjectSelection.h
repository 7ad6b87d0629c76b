#pragma once

#include "CItemSequence.h"

#include <QObject>
#include <QPointer>
#include <QVector>

class CItemModel;
class CProjectModel;
class QModelIndex;
class QUndoCommand;

/// What is selected in the open project: the one answer that canvas, explorer and property panel
/// show and that commands are for.
/// It follows the project. What leaves it is selected no more, what only changes its place still
/// is, and what a step of the undo stack brings in (a paste, a new group, an undone deletion) is
/// selected in place of the rest when the step is over. Undo and redo bring back what was selected
/// before and after the step.
class CProjectSelection : public QObject
{
    Q_OBJECT

public:
    explicit CProjectSelection(QObject *parent = nullptr);

    /// Nothing of it is selected at first. Not owned; null for none.
    void setProject(CProjectModel *project);

    /// Screens too; what has been selected for longest comes first.
    QList<CItemModel *> items() const { return m_items.list(); }
    /// The same without what lies below another of them.
    QList<CItemModel *> topmostItems() const;
    /// What there is to edit: the items, or the one member of a group whose group is selected.
    QList<CItemModel *> shownItems() const;

    /// Exactly these from now on; told by no signal.
    void select(const QList<CItemModel *> &items);
    /// The topmost group of a member of a group, which cannot be selected by itself, while its
    /// properties are shown until the next choice.
    void selectMember(CItemModel *member);
    /// The group that is selected is meant, no longer a member of it.
    void forgetMember() { m_member = nullptr; }

Q_SIGNALS:
    /// Undo or redo has changed something on these pages, the last one last; told ahead of
    /// stepDone().
    void pagesTouched(const QList<CItemModel *> &pages);
    /// A step is over that took rows away, moved them or brought them in, or that has brought
    /// another selection back; the views, which may have lost rows on the way, are to show it.
    void stepDone();

private:
    /// A selection by the rows that lead to its items: what they are called by may be made anew by
    /// a redo, while a state of the project always has the same rows.
    struct SMark
    {
        QVector<int> rows;   ///< of each item from its page on, then -1
        QVector<int> member; ///< the same of a member of a group that is shown
        bool operator==(const SMark &other) const
        {
            return rows == other.rows && member == other.member;
        }
    };
    struct SStep
    {
        SMark before;
        SMark after;
    };

    void clear();
    void rowsAboutToChange();
    SMark mark() const;
    QList<CItemModel *> itemsOf(const QVector<int> &rows) const;
    void record(int index, const SMark &before);
    bool bringBack(const SMark &mark, const QList<CItemModel *> &touched, bool withMember);
    void rowsInserted(const QModelIndex &parent, int first, int last);
    void rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    void touch(CItemModel *item);
    void endStep(int index);
    bool isReplayed(int index);
    CItemModel *itemAt(const QModelIndex &parent, int row) const;
    void forget(CItemModel *gone);

    QPointer<CProjectModel> m_project;
    CItemSequence m_items;
    CItemSequence m_arrived;             ///< by the step under way
    CItemSequence m_touched;             ///< pages, by the step under way
    CItemModel *m_lastTouched = nullptr; ///< only compared
    CItemModel *m_member = nullptr;
    bool m_haveRowsChanged = false;       ///< in the step under way
    SMark m_before;                       ///< when they began to
    QVector<SStep> m_steps;               ///< of the undo stack
    int m_index = 0;                      ///< of the undo stack after the last step
    const QUndoCommand *m_next = nullptr; ///< that a redo would do then; only compared
};
