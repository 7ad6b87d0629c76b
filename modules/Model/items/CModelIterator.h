#pragma once

#include "IModelIterator.h"

class CItemModel;

/// Walks the items below a screen from the back to the front, children before their group: before
/// the first next() the current item is the screen itself, and after its last item there is none.
/// Nothing may change in the tree during a walk.
class CModelIterator final : public IModelIterator
{
public:
    /// Whether the walk leads to what is hidden while editing, too.
    enum class EHidden { Walked, LeftOut };

    explicit CModelIterator(CItemModel *root = nullptr);
    ~CModelIterator() override;

    /// Stands at the start of a walk below another screen.
    void setRoot(CItemModel *root, EHidden hidden = EHidden::Walked);

    void next() override;
    IModelItem *current() override;
    CItemModel *currentItem() const { return m_current; }

private:
    CItemModel *lastBefore(CItemModel *parent, int row) const;
    CItemModel *lastDescendant(CItemModel *item) const;

    CItemModel *m_root;
    CItemModel *m_current;
    EHidden m_hidden = EHidden::Walked;
    bool m_started = false;
};
