#pragma once

class CItemModel;
class CItemView;

/// What item views ask of the canvas on which they are.
class ICanvas
{
public:
    virtual CItemView *viewOf(const CItemModel *item) const = 0; ///< null for none
    /// Whether the rubber band leaves out locked items.
    virtual bool isBandOnLocked() const = 0;

protected:
    ~ICanvas() = default;
};
