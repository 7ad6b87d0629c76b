#pragma once

#include "RowOperations.h"

#include <QUndoCommand>

class CItemModel;

/// Moves items, wherever they are in the project, to neighbouring rows of a screen or a group. What
/// they look like and where they lie on their screen stays as it is.
class CCommandMoveItems final : public QUndoCommand
{
public:
    /// At least one item; the screen or group is none of them nor below one. `row`: that of the
    /// item of `target` before which they come, as the rows are at the time of the redo.
    CCommandMoveItems(const RowOperations::Items &items, CItemModel *target, int row,
                      QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;
    const RowOperations::Items &items() const { return m_items; }

private:
    /// What leaves one parent, in the order of its rows.
    struct SSource
    {
        CItemModel *parent;
        RowOperations::Rows rows;
        RowOperations::Items items;
    };

    const RowOperations::Items m_items; ///< not owned, as all below
    CItemModel *const m_target;
    QVector<SSource> m_sources;
    RowOperations::Rows m_targetRows; ///< without what is moved
};
