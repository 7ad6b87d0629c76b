#pragma once

#include "ItemAttributes.h"

#include <QString>
#include <QStringList>
#include <QVector>

class CXmlWriter;

/// One font of a project: what texts with this handle as their "font" are drawn in.
struct SProjectFont
{
    static constexpr int HandleCount = 16; ///< 0 to 15; the fonts in the chip's ROM come behind
    static constexpr double SmallestSize = 4;
    static constexpr double LargestSize = 256;

    int handle = 0;
    QString name;
    QString file;     ///< absolute or relative to the working directory
    double size = 24; ///< of the em square, pixels
    int bits = 8;     ///< of a texel of its glyphs: 8, 4, 2 or 1
    QString axes;     ///< of a variable font, "wght=700,wdth=87.5"
    QVector<int>
        fallback;  ///< handles whose files are asked for what this one lacks, in their order
    QString extra; ///< characters that no text shows yet, "0-9 , . -"

    bool operator==(const SProjectFont &other) const;
};

/// The fonts of a project, one for each handle at most, by ascending handles.
using ProjectFontList = QVector<SProjectFont>;

namespace ProjectFonts {
/// As elements of a project document, and back. Of what a document says, numbers are brought into
/// their ranges; a font without a free handle gets the first that is free; those for which there is
/// none are left out.
void write(const ProjectFontList &fonts, CXmlWriter &writer);
QVector<ItemAttributes> attributes(const ProjectFontList &fonts);
ProjectFontList fromAttributes(const QVector<ItemAttributes> &elements);

/// What the emulator library is told: a line for each font, its fields parted by tabs: handle,
/// name, file, size, bits, axes, handles of the fallback fonts, extra characters.
QString rendererText(const ProjectFontList &fonts);

/// The first handle that no font of the list has; -1 when all are taken.
int freeHandle(const ProjectFontList &fonts);

extern const QString ListTag; ///< of the element that holds those of the fonts
extern const QString FontTag;
} // namespace ProjectFonts
