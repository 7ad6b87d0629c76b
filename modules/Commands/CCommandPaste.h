#pragma once

#include <QUndoCommand>

#include <memory>

class CItemModel;
class CScreenModel;
struct SItemElement;

/// Puts copied widgets in front of all others of a screen or a group, in their clipboard order.
/// The widgets only move between the target and a holding screen, which the command owns.
class CCommandPaste final : public QUndoCommand
{
public:
    /// `holding`: a screen of no project with the widgets.
    CCommandPaste(CItemModel *target, std::unique_ptr<CScreenModel> holding,
                  QUndoCommand *parent = nullptr);
    /// `element`: the clipboard document's root, one child element per item.
    CCommandPaste(CItemModel *target, const SItemElement &element, QUndoCommand *parent = nullptr);
    ~CCommandPaste() override;

    void redo() override;
    void undo() override;

private:
    CItemModel *const m_target; ///< not owned
    const int m_rowCount;       ///< of the target when the command was made
    std::unique_ptr<CScreenModel> m_holding;
};
