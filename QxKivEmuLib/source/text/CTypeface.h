#pragma once

#include "fontfiles/CFontFile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct hb_face_t;
struct hb_font_t;

namespace kivemu {

/// How glyphs are turned: a matrix of 16.16 numbers, y upwards.
struct SGlyphTurn
{
    int32_t xx = 0x10000;
    int32_t xy = 0;
    int32_t yx = 0;
    int32_t yy = 0x10000;
};

/// 8-bit coverage of one glyph.
struct SGlyphCoverage
{
    int width = 0;
    int height = 0;
    int left = 0;
    int top = 0;
    const uint8_t *rows = nullptr; ///< until the next call; null without ink
    size_t stride = 0;
};

/// The shapes of a font file at given places of its axes. Threads: one at a time.
class CTypeface
{
public:
    using Axes = std::vector<std::pair<std::string, double>>;
    static constexpr int MostPoints = 16384; ///< of an outline
    static constexpr int MaxSide = 512;      ///< pixels of a mask

    /// Takes an open file; axes that the font has not are passed over.
    CTypeface(CFontFile file, const Axes &axes);
    ~CTypeface();
    CTypeface(const CTypeface &) = delete;
    CTypeface &operator=(const CTypeface &) = delete;

    struct SFontDeleter
    {
        void operator()(hb_font_t *font) const;
    };
    using FontPtr = std::unique_ptr<hb_font_t, SFontDeleter>;
    /// The font at a size of the em in 1/64 pixels; its lengths have that unit too.
    FontPtr makeFont(int size64) const;

    /// Draws a glyph's outline as it is, without hints; a box, upright, for a glyph 0 that shows
    /// nothing. Gives why it cannot be drawn, otherwise an
    /// empty text.
    const char *draw(const hb_font_t *font, uint32_t glyph, int size64, const SGlyphTurn &turn,
                     SGlyphCoverage &coverage);

private:
    void drawMissingBox(int advance64, int size64, SGlyphCoverage &coverage);

    CFontFile m_file;
    Axes m_axes;
    hb_face_t *m_face;
    int m_size64 = 0; ///< that FreeType has been told
    std::vector<uint8_t> m_missingBox;
};

} // namespace kivemu
