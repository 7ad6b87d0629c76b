#pragma once

class IModelItem;

/// A walk over the items of one screen, from the back to the front.
/// Before the first next() the current item is the screen itself; then each next() gives one item,
/// children before their group. After the last item current() is null; the screen is not
/// reported again.
class IModelIterator
{
public:
    virtual void next() = 0;
    /// The item that the walk stands at, or null when the walk has ended.
    virtual IModelItem *current() = 0;
    virtual ~IModelIterator() = default;
};
