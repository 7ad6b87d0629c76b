#pragma once

#include "SItemElement.h"

#include <QUndoCommand>

#include <memory>
#include <vector>

class CItemModel;
class CProjectModel;
struct SUnused;

/// Adds a screen that is described by an XML element, from the clipboard or a page file.
/// The screen is built once; undo takes it out and redo puts the same screen back, because later
/// commands on the stack point to its items.
class CCommandPasteScreen final : public QUndoCommand
{
public:
    /// `row`: where the project builds the screen; its row count or more appends. `unused`: shared
    /// by commands that are pushed one after the other, for the first redo of each.
    CCommandPasteScreen(CProjectModel *project, SItemElement element, int row,
                        std::shared_ptr<SUnused> unused = {}, QUndoCommand *parent = nullptr);
    ~CCommandPasteScreen() override;

    void redo() override;
    void undo() override;

private:
    CProjectModel *const m_project;    ///< not owned
    SItemElement m_element;            ///< until the screen is built
    std::shared_ptr<SUnused> m_unused; ///< until then, too
    const int m_row;
    const int m_rowCount;                             ///< of the project when the command was made
    std::vector<std::unique_ptr<CItemModel>> m_taken; ///< last row first, held while undone
};
