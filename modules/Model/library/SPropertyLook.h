#pragma once

#include <QString>

/// How panels show a property of a kind. It changes nothing of what the property is or stores.
struct SPropertyLook
{
    /// What a value is chosen with, or how it reads.
    enum class EEditor {
        Plain,     ///< as its type has it
        Font,      ///< a font's number, chosen from a list of fonts
        Symbol,    ///< an entry that names a line drawing
        Sixteenths ///< a length in sixteenths of a pixel, shown and typed in pixels
    };

    QString caption; ///< for people, in English: the library's, or made of the key
    QString section; ///< the part of the panel it stands in; empty: none
    EEditor editor = EEditor::Plain;
};
