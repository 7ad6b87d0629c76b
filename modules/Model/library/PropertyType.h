#pragma once

#include <QString>

/// What a property's value is and how its text reads. The codes are the ones that the emulator
/// library sees.
enum class PropertyType : qint32 {
    Invalid = -1,
    Int = 0,
    Float = 1,
    Bool = 2,
    Rgb = 3,
    Time = 4,
    Enum = 5,
    String = 6,
};

/// The name of a type as widget libraries write it; empty for a code that is none.
QString nameOfPropertyType(PropertyType type);

/// The type that a widget library names. Whatever begins with "enum" is an enumeration (its
/// entries follow in the text); an unknown name gives Int.
PropertyType propertyTypeOfName(const QString &name);
