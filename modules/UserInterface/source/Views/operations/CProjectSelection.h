#pragma once

#include "CItemSequence.h"

#include <QObject>
#include <QPointer>

class CItemModel;
class CProjectModel;
class QModelIndex;
class QUndoCommand;

/// What is selected in the open project: the one answer that canvas, explorer and property panel
/// show and that commands are for.
/// It follows the project. What leaves it is selected no more, what only changes its place still
/// is, and what a step of the undo stack brings in (a paste, a new group, an undone deletion) is
/// selected in place of the rest when the step is over.
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
    /// A step that took rows away, moved them or brought them in is over; the views, which have
    /// lost rows on the way, are to show this selection again.
    void stepDone();

private:
    void clear();
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
    int m_index = 0;                      ///< of the undo stack after the last step
    const QUndoCommand *m_next = nullptr; ///< that a redo would do then; only compared
};
