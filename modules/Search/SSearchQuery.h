#pragma once

#include <QString>

/// Where a search looks.
enum class ESearchField {
    Everything, ///< all of the below; numbers only as a whole
    Name,
    Text,     ///< what a widget writes, and other values that are texts
    Kind,     ///< as it is called in the palette, or its type name
    Property, ///< "width", or with a value: "width=120", "width>=120", "text:room"
    Value,    ///< of any property; numbers only as a whole
    Colour,   ///< a name, "#rgb", or how the value begins: "#2d9"
    Font,     ///< number, or the name of a font of the project
    Image,    ///< name of the file
};

/// What is searched for.
struct SSearchQuery
{
    QString text;
    ESearchField field = ESearchField::Everything;
    bool isPattern = false;       ///< the text is a regular expression
    bool isCaseSensitive = false; ///< for texts
};
