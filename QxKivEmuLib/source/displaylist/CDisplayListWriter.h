#pragma once

#include "raster/BitmapImage.h"
#include "raster/RasterTypes.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kivemu {

/// Builds a display list word by word. Knows the encoding and nothing of what the words draw.
/// Colour, alpha, blend and line width are remembered, so that setting what already holds adds no
/// words.
/// Errors:  with a limit set, a command that does not fit (one word stays free for the end) is left
///          out whole and counted; later, shorter commands are left out too.
class CDisplayListWriter
{
public:
    /// `limitBytes`: size of the chip's RAM_DL.
    explicit CDisplayListWriter(size_t limitBytes);

    void clear(Argb colour);
    void setColour(Argb colour); ///< COLOUR and, when it differs, ALPHA
    void setBlend(bool on);
    void setLineWidth(Sub16 width);
    void setScissor(int x, int y, int width, int height); ///< whole pixels
    void save();
    void restore();
    void item(uint32_t id);

    void disc(SPoint centre, Sub16 radius);
    void line(SPoint from, SPoint to);
    void fillRect(SPoint topLeft, SPoint size, Sub16 radius);
    void strokeRect(SPoint topLeft, SPoint size, Sub16 radius);
    void polyline(const SPoint *points, size_t count, bool closed);
    void polygon(const SPoint *points, size_t count);
    void arc(SPoint centre, Sub16 radius, Angle64 start, Angle64 sweep, EArcCaps caps);
    void gradient(SPoint topLeft, SPoint size, Sub16 radius, Angle64 direction, Argb from, Argb to);
    /// A run of Latin-1 characters, the pen at `pen` (baseline); zero bytes are left out.
    void text(int font, SPoint pen, std::string_view latin1);

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

    /// Ends the list with END, also when the limit was reached.
    void finish();

    const std::vector<uint32_t> &words() const;
    size_t bytesUsed() const;
    /// Bytes that the whole list would have needed, left-out commands included.
    size_t bytesWanted() const;

private:
    struct SState
    {
        Argb colour = 0xFFFFFFFF;
        bool blend = true;
        Sub16 lineWidth = 16;
    };
    bool begin(size_t words);
    void put(uint32_t word);

    size_t m_limitWords;
    size_t m_wantedWords = 0;
    bool m_full = false;
    SState m_state;
    std::vector<SState> m_saved;
    std::vector<uint32_t> m_words;
};

} // namespace kivemu
