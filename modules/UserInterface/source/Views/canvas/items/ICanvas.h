#pragma once

class CItemModel;
class CItemView;

/// What item views ask of the canvas on which they are.
class ICanvas
{
public:
    virtual CItemView *viewOf(const CItemModel *item) const = 0; ///< null for none
    /// Whether the item itself can be taken, not only the group that it is in: the canvas goes into
    /// one group at a time.
    virtual bool isReachable(const CItemModel &item) const = 0;
    /// Whether it is the group that the canvas has gone into.
    virtual bool isEntered(const CItemModel &item) const = 0;
    /// Whether its handles are shown; several selected items have those of their common frame.
    virtual bool hasOwnHandles(const CItemView &view) const = 0;
    /// Whether the rubber band takes no notice of it.
    virtual bool isLeftOutOfBand(const CItemModel &item) const = 0;

protected:
    ~ICanvas() = default;
};
