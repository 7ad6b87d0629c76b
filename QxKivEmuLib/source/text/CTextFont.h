#pragma once

#include "CGlyphBlock.h"
#include "CRecent.h"
#include "CShaper.h"
#include "CTextBreaks.h"
#include "CTextFaces.h"
#include "FontTable.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kivemu {

/// What all fonts of a worker share.
struct STextTools
{
    CTextBreaks breaks;
    CShaper shaper;
};

/// A text in lines.
struct SWrappedText
{
    std::vector<SShapedLine> lines;
    bool isWhole = true;
};

/// One font of the project: texts as placed glyphs, and the glyphs that a frame uses. Lengths are
/// pixels unless they say otherwise; what the functions give by reference stays until the next
/// call.
class CTextFont
{
public:
    static constexpr size_t MaxText = 4096; ///< code points; more are cut
    static constexpr size_t MaxLines = 1000;

    /// `file`: the font's, as it was found. The typefaces are its own and those of its fallbacks.
    CTextFont(SFontLine line, std::string file, std::vector<std::shared_ptr<CTypeface>> typefaces,
              STextTools &tools);

    const SFontLine &line() const { return m_line; }
    const std::string &file() const { return m_file; }
    int height() const { return m_ascent + m_descent; }
    int ascent() const { return m_ascent; }
    int capHeight() const { return m_capHeight; }
    const CTextFaces &faces() const { return m_faces; }

    const SShapedLine &shape(std::string_view utf8);
    /// The text, or its longest beginning of whole clusters with an ellipsis that is at most so
    /// wide; empty when not even that fits.
    const std::string &fit(std::string_view utf8, double width);
    /// At most `mostLines` (1 to MaxLines) lines; the last ends in an ellipsis when it is not all.
    const SWrappedText &wrap(std::string_view utf8, double width, size_t mostLines);

    /// The block of glyphs that are turned clockwise by an angle; the upright one begins each frame
    /// with the font's extra characters.
    CGlyphBlock &block(double degrees, uint64_t frame);
    void endFrame(uint64_t frame);

private:
    std::string fitted(std::string_view utf8, int32_t width, bool isCutAnyway);
    int32_t widthOf(std::string_view utf8);
    char32_t firstLacking(const std::u32string &characters) const;
    void addExtra(CGlyphBlock &block);
    bool wrapSection(std::string_view section, bool isLast, int32_t width, size_t mostLines,
                     SWrappedText &wrapped);

    SFontLine m_line;
    std::string m_file;
    STextTools &m_tools;
    CTextFaces m_faces;
    int m_ascent = 0;
    int m_descent = 0;
    int m_capHeight = 0;
    std::string m_ellipsis;
    CRecent<SShapedLine> m_shaped;
    CRecent<std::string> m_fitted;
    CRecent<SWrappedText> m_wrapped;
    std::vector<std::unique_ptr<CGlyphBlock>> m_blocks;
};

} // namespace kivemu
