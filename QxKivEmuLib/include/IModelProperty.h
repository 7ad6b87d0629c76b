#pragma once

#include <cstdint>

/// One named, typed property of a model item, as the emulator library reads it.
/// Strings are UTF-8, zero-terminated, and stay valid as long as the property is unchanged.
class IModelProperty
{
public:
    virtual ~IModelProperty() = default;

    /// The property's key, e.g. "x_coordinate".
    virtual const char *name() = 0;
    /// "int" for integers and booleans, "string" for everything else.
    virtual const char *storageTypeName() = 0;
    /// The canonical value text: decimal integers, "1" or "0", "#rrggbb" or "#aarrggbb",
    /// "HH:mm:ss", or the text itself.
    virtual const char *valueText() = 0;
    /// The type code: 0 int, 1 float, 2 bool, 3 rgb, 4 time, 5 enum, 6 string.
    virtual int32_t type() = 0;
    /// The value as an integer; 0 when it cannot be converted.
    virtual int32_t valueAsInteger() = 0;
};
