#pragma once

#include <cstddef>
#include <string_view>

namespace kivemu {

class CTextFont;
struct SLuaContext;
struct SShapedLine;

/// What a text is drawn in: a font of the project's own, or else one in ROM.
struct SFontChoice
{
    CTextFont *own; ///< null for one in ROM
    int rom;

    int height() const;
    int ascent() const;
    int capHeight() const;
};

enum class ETextAlign { Left, Centre, Right, Start };
enum class ETextValign { Top, Middle, Bottom };

/// Pixels.
struct STextBox
{
    double x;
    double y;
    double width;
    double height;
    double pitch;     ///< from line to line
    double mostLines; ///< below 1: as many as the height has room for
    ETextAlign align;
    ETextValign valign;
};

struct STextBoxResult
{
    size_t lines;
    bool isWhole;
};

// These raise no Lua error: when the watchdog says that it is enough, the rest is left out, and the
// caller has to ask it.

/// Draws a line with its pen at a place, and notes what the font lacks.
void drawShaped(SLuaContext &context, CTextFont &font, const SShapedLine &line, double x, double y);
/// Breaks a text into lines and draws those for which there is room, at least one.
STextBoxResult drawTextBox(SLuaContext &context, const STextBox &box, const SFontChoice &font,
                           std::string_view utf8);

} // namespace kivemu
