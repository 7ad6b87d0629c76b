#include "CShaper.h"

#include "CTextFaces.h"
#include "Paragraph.h"

#include <algorithm>
#include <fribidi.h>
#include <hb.h>

namespace kivemu {

namespace {

constexpr int64_t Farthest = 1 << 24; ///< 1/64 pixels; far outside of any screen
constexpr size_t MostMissing = 32;

int32_t clamped(int64_t length)
{
    return static_cast<int32_t>(std::clamp(length, -Farthest, Farthest));
}

void addOnce(std::u32string &characters, char32_t c)
{
    if (characters.size() < MostMissing && characters.find(c) == std::u32string::npos)
        characters += c;
}

} // namespace

CShaper::CShaper() : m_buffer(hb_buffer_create())
{
}

CShaper::~CShaper()
{
    hb_buffer_destroy(m_buffer);
}

/// Pieces of one direction, script and font, in the order in which they are seen.
std::vector<CShaper::SRun> CShaper::runsOf(const SParagraph &paragraph, size_t from, size_t to)
{
    std::vector<int8_t> levels(paragraph.levels.begin() + static_cast<std::ptrdiff_t>(from),
                               paragraph.levels.begin() + static_cast<std::ptrdiff_t>(to));
    // Blanks at the line's end go with the paragraph. It fails only without memory.
    if (!paragraph.types.empty() && !levels.empty() &&
        fribidi_reorder_line(FRIBIDI_FLAGS_DEFAULT, paragraph.types.data() + from,
                             static_cast<FriBidiStrIndex>(levels.size()), 0,
                             paragraph.isRightToLeft ? FRIBIDI_PAR_RTL : FRIBIDI_PAR_LTR,
                             levels.data(), nullptr, nullptr) == 0)
        levels.assign(levels.size(), 0);
    std::vector<SRun> runs;
    int8_t highest = 0;
    for (size_t at = from; at < to; ++at) {
        const int8_t level = levels[at - from];
        const bool isSame = !runs.empty() && runs.back().level == level &&
                            paragraph.scripts[at] == paragraph.scripts[at - 1] &&
                            paragraph.faces[at] == paragraph.faces[at - 1];
        if (isSame)
            runs.back().to = at + 1;
        else
            runs.push_back({at, at + 1, level});
        highest = std::max(highest, level);
    }
    for (int8_t level = highest; level > 0; --level) {
        for (auto run = runs.begin(); run != runs.end();) {
            const auto isBelow = [level](const SRun &other) { return other.level < level; };
            const auto first = std::find_if_not(run, runs.end(), isBelow);
            run = std::find_if(first, runs.end(), isBelow);
            std::reverse(first, run);
        }
    }
    return runs;
}

SShapedLine CShaper::shape(const SParagraph &paragraph, size_t from, size_t to, CTextFaces &faces)
{
    SShapedLine line;
    line.isRightToLeft = paragraph.isRightToLeft;
    line.advances.assign(to - from, 0);
    m_pen = 0;
    for (const SRun &run : runsOf(paragraph, from, to))
        shapeRun(paragraph, run, from, faces, line);
    line.width = clamped(m_pen);
    findMiddle(paragraph, from, to, faces, line);
    return line;
}

void CShaper::shapeRun(const SParagraph &paragraph, const SRun &run, size_t lineStart,
                       CTextFaces &faces, SShapedLine &line)
{
    const std::u32string &text = paragraph.text();
    const uint16_t face = paragraph.faces[run.from];
    hb_buffer_clear_contents(m_buffer);
    hb_buffer_add_utf32(m_buffer, reinterpret_cast<const uint32_t *>(text.data()),
                        static_cast<int>(text.size()), static_cast<unsigned>(run.from),
                        static_cast<int>(run.to - run.from));
    hb_buffer_set_direction(m_buffer, (run.level & 1) != 0 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_script(m_buffer, static_cast<hb_script_t>(paragraph.scripts[run.from]));
    // Named, since the machine's own would make shapes differ.
    hb_buffer_set_language(m_buffer, hb_language_from_string("und", -1));
    hb_shape(faces.font(face), m_buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t *infos = hb_buffer_get_glyph_infos(m_buffer, &count);
    const hb_glyph_position_t *positions = hb_buffer_get_glyph_positions(m_buffer, &count);
    for (unsigned at = 0; at < count; ++at) {
        const hb_glyph_position_t &place = positions[at];
        const size_t cluster = std::clamp<size_t>(infos[at].cluster, run.from, run.to - 1);
        const uint32_t slot = faces.slotOf(face, infos[at].codepoint);
        line.glyphs.push_back({slot, clamped(m_pen + place.x_offset), clamped(place.y_offset)});
        m_pen += clamped(place.x_advance);
        int32_t &advance = line.advances[cluster - lineStart];
        advance = clamped(int64_t{advance} + place.x_advance);
        if (infos[at].codepoint == 0) {
            size_t lacking = cluster;
            while (lacking + 1 < run.to && faces.has(face, text[lacking]))
                ++lacking;
            addOnce(line.missing, faces.has(face, text[lacking]) ? text[cluster] : text[lacking]);
        }
    }
}

/// Figures at either end keep their place while they change.
void CShaper::findMiddle(const SParagraph &paragraph, size_t from, size_t to,
                         const CTextFaces &faces, SShapedLine &line)
{
    int64_t left = 0;
    int64_t right = line.width;
    const auto isFigure = [&](size_t at) {
        return paragraph.text()[at] >= '0' && paragraph.text()[at] <= '9';
    };
    const auto extentsOf = [&](const SShapedGlyph &glyph, hb_glyph_extents_t &extents) {
        const CTextFaces::SSlot &slot = faces.slot(glyph.slot);
        return hb_font_get_glyph_extents(faces.font(slot.face), slot.glyph, &extents) &&
               extents.width != 0;
    };
    if (!line.glyphs.empty() && from < to) {
        const size_t first = line.isRightToLeft ? to - 1 : from;
        const size_t last = line.isRightToLeft ? from : to - 1;
        hb_glyph_extents_t extents{};
        if (!isFigure(first) && extentsOf(line.glyphs.front(), extents))
            left = int64_t{line.glyphs.front().x} + extents.x_bearing;
        if (!isFigure(last) && extentsOf(line.glyphs.back(), extents))
            right = int64_t{line.glyphs.back().x} + extents.x_bearing + extents.width;
    }
    line.middle = clamped((left + right) / 2);
}

} // namespace kivemu
