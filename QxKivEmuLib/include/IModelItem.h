#pragma once

class IModelProperty;

/// One item of a screen, or the screen itself, as the emulator library reads it.
/// Strings are UTF-8, zero-terminated, and stay valid as long as the item is unchanged.
class IModelItem
{
public:
    virtual ~IModelItem() = default;

    /// The item's id as text; empty when it has none.
    virtual const char *idText() = 0;
    /// "Kiv_Screen_T", "Widget_Group_T" or the name of a widget kind.
    virtual const char *typeName() = 0;
    virtual int propertyCount() = 0;
    /// The property at `index`, which must lie in 0 .. propertyCount() - 1. The order is stable
    /// only while the property set is unchanged.
    virtual IModelProperty *property(int index) = 0;
    /// What draws the item: the chunk of its kind in the widget library. Empty when the kind is
    /// not known, or for screens and groups, which draw nothing by themselves.
    virtual const char *renderCommands() = 0;
};
