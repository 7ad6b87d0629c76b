#pragma once

#include "displaylist/CommandTable.h"
#include "displaylist/FontBlock.h"
#include "raster/BitmapImage.h"
#include "raster/RasterTypes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kivemu {

/// Builds a display list word by word. Knows the encoding and nothing of what the words draw.
/// Colour, alpha, blend, line width, fonts and the bitmap's set-up are remembered, so that setting
/// what already holds adds no words; the first four follow save() and restore().
/// Range:   coordinates are cut to -2048 .. 2047.9375 pixels, lengths to 0 .. 4095.9375 pixels, so
///          that nothing wraps around; a rectangle keeps its edges that lie within.
/// Errors:  with a limit set, what does not fit (one word stays free for the end) is left out whole
///          and counted; whatever follows is left out too. A text run, a path and a bitmap with its
///          set-up count as one.
class CDisplayListWriter
{
public:
    /// `limitBytes`: size of the chip's RAM_DL.
    explicit CDisplayListWriter(size_t limitBytes);

    void clear(Argb colour);     ///< alpha is not used
    void setColour(Argb colour); ///< COLOR and, when it differs, ALPHA
    void setBlend(bool on);
    void setLineWidth(Sub16 width);
    void setScissor(int x, int y, int width, int height); ///< whole pixels
    /// False, and nothing is written, when MaxSavedStates are kept already.
    bool save();
    /// False, and nothing is written, when no state is kept.
    bool restore();
    /// The item that the following commands draw; the same id again adds nothing.
    void item(uint32_t id);

    void disc(SPoint centre, Sub16 radius);
    void line(SPoint from, SPoint to);
    void fillRect(SPoint topLeft, SPoint size, Sub16 radius);
    void strokeRect(SPoint topLeft, SPoint size, Sub16 radius);
    /// No points write nothing. More than MaxVertices do not fit into the RAM_DL of any chip.
    void polyline(const SPoint *points, size_t count, bool closed);
    void polygon(const SPoint *points, size_t count);
    void arc(SPoint centre, Sub16 radius, Angle64 start, Angle64 sweep, EArcCaps caps);
    void gradient(SPoint topLeft, SPoint size, Sub16 radius, Angle64 direction, Argb from, Argb to);
    /// A run of Latin-1 characters, the pen at `pen` (baseline); zero bytes are left out.
    void text(int font, SPoint pen, std::string_view latin1);

    /// From now on the handle (0 to 15) means the font block at `address`, which may be a
    /// placeholder that another is put in the place of; fontWords() tells where.
    void font(uint32_t handle, uint32_t address);

    /// A glyph of a font block, and where it is to be drawn.
    struct SPlacedGlyph
    {
        uint16_t number; ///< in the block
        SPoint pen;      ///< x is the pen before the glyph, y its baseline
        Sub16 advance;   ///< the glyph's own, as the block has it
    };
    /// Glyphs of the font that the handle has been given. Glyphs whose pen lies outside the range
    /// of coordinates are left out. One that follows the glyph before it, up to 8 pixels nearer or
    /// farther than its advance, is one word, any other three.
    void glyphs(uint32_t handle, const std::vector<SPlacedGlyph> &run);

    struct SBitmapSource
    {
        uint32_t address; ///< in RAM_G
        uint32_t format;  ///< code of the bitmap format
        uint32_t stride;  ///< bytes from row to row
        uint16_t width;   ///< texels
        uint16_t height;
        uint32_t palette; ///< address of the palette; for formats without one 0
    };
    void bitmap(const SBitmapSource &source, const SBitmapPlacement &placement);

    /// How far the list has come, and what is remembered of it.
    struct SMark;
    SMark mark() const;
    /// Takes back whatever was written since.
    void takeBack(const SMark &mark);

    /// Ends the list with END, also when the limit was reached. Nothing may follow.
    void finish();

    const std::vector<uint32_t> &words() const { return m_words; }
    /// Where the addresses that font() was given stand among the words.
    const std::vector<size_t> &fontWords() const { return m_fontWords; }
    /// Bytes that the whole list would have needed, left-out commands included.
    size_t bytesWanted() const { return m_at.wantedWords * 4; }
    /// The item of the first command that did not fit (0 before the first item); nothing when all
    /// fitted.
    std::optional<uint32_t> overflowItem() const { return m_at.overflowItem; }

private:
    struct SState
    {
        Argb colour = 0xFFFFFFFF;
        bool blend = true;
        Sub16 lineWidth = 16;
    };
    /// What the bitmap commands have set; no source: nothing yet.
    struct SBitmapState
    {
        std::optional<SBitmapSource> source;
        uint32_t palette = 0;
        uint32_t mode = 0;
        int32_t transform[6] = {65536, 0, 0, 0, 65536, 0};
    };
    bool begin(size_t words);
    void put(uint32_t word) { m_words.push_back(word); }
    void command(EOpcode opcode, uint32_t operand);
    void rectangle(EOpcode opcode, SPoint topLeft, SPoint size, Sub16 radius);
    void path(EOpcode opcode, uint32_t operand, const SPoint *points, size_t count);

    /// What is known of the words that were written.
    struct SProgress
    {
        size_t wantedWords = 0;
        bool isFull = false;
        std::optional<uint32_t> item;
        std::optional<uint32_t> overflowItem;
        SState state;
        std::vector<SState> saved;
        SBitmapState bitmap;
        std::array<std::optional<uint32_t>, FontHandles> fonts; ///< addresses
    };

    size_t m_limitWords;
    SProgress m_at;
    std::vector<uint32_t> m_words;
    std::vector<size_t> m_fontWords;
};

struct CDisplayListWriter::SMark
{
    size_t words = 0;
    SProgress at;
};

} // namespace kivemu
