#include "CTypeface.h"

#include <algorithm>
#include <ft2build.h>
#include <hb-ot.h>
#include <hb.h>
#include FT_FREETYPE_H
#include FT_MULTIPLE_MASTERS_H
#include FT_OUTLINE_H

namespace kivemu {

namespace {

uint32_t tagOf(const std::string &text)
{
    return HB_TAG(text[0], text[1], text[2], text[3]);
}

void setAxes(FT_Face face, const CTypeface::Axes &axes)
{
    constexpr FT_UInt MostAxes = 64;
    FT_MM_Var *variations = nullptr;
    if (axes.empty() || !FT_HAS_MULTIPLE_MASTERS(face) || FT_Get_MM_Var(face, &variations) != 0)
        return;
    std::vector<FT_Fixed> places;
    for (FT_UInt at = 0; at < std::min(variations->num_axis, MostAxes); ++at) {
        const FT_Var_Axis &axis = variations->axis[at];
        FT_Fixed place = axis.def;
        for (const auto &[tag, value] : axes) {
            if (tagOf(tag) == axis.tag && axis.minimum <= axis.maximum)
                place =
                    std::clamp(static_cast<FT_Fixed>(std::clamp(value, -32768.0, 32767.0) * 65536),
                               axis.minimum, axis.maximum);
        }
        places.push_back(place);
    }
    FT_Set_Var_Design_Coordinates(face, static_cast<FT_UInt>(places.size()), places.data());
    FT_Done_MM_Var(face->glyph->library, variations);
}

} // namespace

void CTypeface::SFontDeleter::operator()(hb_font_t *font) const
{
    hb_font_destroy(font);
}

CTypeface::CTypeface(CFontFile file, const Axes &axes) : m_file(std::move(file)), m_axes(axes)
{
    const std::vector<uint8_t> &tables = m_file.tables();
    hb_blob_t *blob = hb_blob_create(reinterpret_cast<const char *>(tables.data()),
                                     static_cast<unsigned>(tables.size()), HB_MEMORY_MODE_READONLY,
                                     nullptr, nullptr);
    m_face = hb_face_create(blob, 0);
    hb_blob_destroy(blob);
    setAxes(m_file.face(), m_axes);
}

CTypeface::~CTypeface()
{
    hb_face_destroy(m_face);
}

CTypeface::FontPtr CTypeface::makeFont(int size64) const
{
    FontPtr font(hb_font_create(m_face));
    hb_font_set_scale(font.get(), size64, size64);
    std::vector<hb_variation_t> variations;
    for (const auto &[tag, value] : m_axes)
        variations.push_back({tagOf(tag), static_cast<float>(value)});
    hb_font_set_variations(font.get(), variations.data(), static_cast<unsigned>(variations.size()));
    return font;
}

const char *CTypeface::draw(const hb_font_t *font, uint32_t glyph, int size64,
                            const SGlyphTurn &turn, SGlyphCoverage &coverage)
{
    constexpr const char *Damaged = "a glyph is damaged and is left out";
    constexpr const char *TooLarge = "a glyph is larger than 512 pixels and is left out";
    constexpr FT_Pos Farthest = FT_Pos{16384} * 64;
    coverage = {};
    // It gives up programs of outlines that run long, which FreeType would carry out.
    hb_glyph_extents_t extents{};
    if (!hb_font_get_glyph_extents(const_cast<hb_font_t *>(font), glyph, &extents))
        return Damaged;
    if (extents.width == 0 || extents.height == 0) {
        if (glyph == 0)
            drawMissingBox(hb_font_get_glyph_h_advance(const_cast<hb_font_t *>(font), 0), size64,
                           coverage);
        return "";
    }
    const int64_t most = int64_t{MaxSide + 2} * 64;
    const bool isUpright = turn.xy == 0 && turn.yx == 0;
    if (isUpright &&
        (std::abs(int64_t{extents.width}) > most || std::abs(int64_t{extents.height}) > most))
        return TooLarge;
    const FT_Face face = m_file.face();
    if (m_size64 != size64 && FT_Set_Char_Size(face, size64, size64, 72, 72) != 0)
        return Damaged;
    m_size64 = size64;
    if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_AUTOHINT | FT_LOAD_NO_BITMAP) !=
            0 ||
        face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
        return Damaged;
    FT_Outline &outline = face->glyph->outline;
    if (outline.n_points > MostPoints)
        return Damaged;
    const FT_Matrix matrix{turn.xx, turn.xy, turn.yx, turn.yy};
    FT_Outline_Transform(&outline, &matrix);
    FT_BBox box{};
    FT_Outline_Get_CBox(&outline, &box);
    if (box.xMin < -Farthest || box.yMin < -Farthest || box.xMax > Farthest ||
        box.yMax > Farthest || (box.xMax + 63) / 64 - box.xMin / 64 > MaxSide ||
        (box.yMax + 63) / 64 - box.yMin / 64 > MaxSide)
        return TooLarge;
    if (FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) != 0)
        return Damaged;
    const FT_Bitmap &bitmap = face->glyph->bitmap;
    if (bitmap.width == 0 || bitmap.rows == 0)
        return "";
    if (bitmap.width > MaxSide || bitmap.rows > MaxSide || bitmap.pitch < 0)
        return TooLarge;
    coverage = {static_cast<int>(bitmap.width),
                static_cast<int>(bitmap.rows),
                face->glyph->bitmap_left,
                face->glyph->bitmap_top,
                bitmap.buffer,
                static_cast<size_t>(bitmap.pitch)};
    return "";
}

/// Some fonts show nothing for a character that they lack; a user must see that it is missing.
void CTypeface::drawMissingBox(int advance64, int size64, SGlyphCoverage &coverage)
{
    const int side = std::clamp(size64 / 64, 4, MaxSide);
    const int line = std::max(1, side / 16);
    const int width = std::clamp(advance64 / 64 - 2, 3, side);
    const int height = side * 7 / 10;
    const auto stride = static_cast<size_t>(width);
    m_missingBox.assign(stride * static_cast<size_t>(height), 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool isInside = x >= line && x < width - line && y >= line && y < height - line;
            m_missingBox[static_cast<size_t>(y) * stride + static_cast<size_t>(x)] =
                isInside ? 0 : 255;
        }
    }
    coverage = {width, height, 1, height, m_missingBox.data(), stride};
}

} // namespace kivemu
