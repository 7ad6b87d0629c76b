#pragma once

#include "IModelIterator.h"

class CItemModel;

/// Walks the items below a screen from the back to the front, children before their group: before
/// the first next() the current item is the screen itself, and after its last item there is none.
/// Nothing may change in the tree during a walk.
class CModelIterator final : public IModelIterator
{
public:
    explicit CModelIterator(CItemModel *root = nullptr);
    ~CModelIterator() override;

    /// Stands at the start of a walk below another screen.
    void setRoot(CItemModel *root);

    void next() override;
    IModelItem *current() override;
    CItemModel *currentItem() const { return m_current; }

private:
    CItemModel *m_root;
    CItemModel *m_current;
    bool m_started = false;
};
