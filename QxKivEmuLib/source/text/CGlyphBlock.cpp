#include "CGlyphBlock.h"

#include "CTextFaces.h"
#include "displaylist/FontBlock.h"

#include <algorithm>
#include <cmath>

namespace kivemu {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr uint64_t WorkPerGlyph = 2000; ///< of a mask that is drawn
constexpr uint64_t WorkPerTexel = 2;

int32_t fixed(double number)
{
    return static_cast<int32_t>(std::lround(number * 0x10000));
}

} // namespace

CGlyphBlock::CGlyphBlock(CTextFaces &faces, int bits, int angle64)
    : m_faces(faces), m_bits(bits), m_angle64(angle64)
{
    const double radians = angle64 * Pi / (FullTurn / 2.0);
    m_cosine = angle64 == 0 ? 1 : std::cos(radians);
    if (angle64 != 0) {
        const int32_t sine = fixed(std::sin(radians));
        m_turn = {fixed(m_cosine), sine, -sine, fixed(m_cosine)};
    }
}

bool CGlyphBlock::beginFrame(uint64_t frame)
{
    if (m_frame == frame)
        return false;
    m_frame = frame;
    m_order.clear();
    m_why = "";
    return true;
}

void CGlyphBlock::takeBack(uint64_t part)
{
    for (; !m_order.empty() && m_order.back().part >= part; m_order.pop_back())
        m_states[m_order.back().slot].frame = 0;
}

std::optional<uint16_t> CGlyphBlock::use(uint32_t slot, IWorkMeter &meter)
{
    if (slot >= m_states.size())
        m_states.resize(m_faces.slotCount());
    SState &state = m_states[slot];
    if (state.frame != m_frame) {
        if (!state.isDrawn)
            draw(slot, state);
        const auto texels =
            static_cast<uint64_t>(state.width) * static_cast<uint64_t>(state.height);
        if (m_order.size() == MaxFontGlyphs || meter.add(WorkPerGlyph + texels * WorkPerTexel))
            return std::nullopt;
        state.frame = m_frame;
        state.number = static_cast<uint16_t>(m_order.size());
        if (*state.fault != '\0')
            m_why = state.fault;
        else
            m_order.push_back({slot, m_part});
    }
    return *state.fault == '\0' ? std::optional<uint16_t>(state.number) : std::nullopt;
}

void CGlyphBlock::draw(uint32_t slot, SState &state)
{
    const CTextFaces::SSlot &glyph = m_faces.slot(slot);
    SGlyphCoverage coverage;
    state.fault =
        m_faces.typeface(glyph.face)
            .draw(m_faces.font(glyph.face), glyph.glyph, m_faces.size64(), m_turn, coverage);
    state.isDrawn = true;
    const double advance = glyph.advance64 * m_cosine / 4;
    state.advance16 = static_cast<int>(std::lround(std::clamp(advance, -32768.0, 32767.0)));
    if (*state.fault != '\0' || !coverage.rows)
        return;
    state.width = static_cast<int16_t>(coverage.width);
    state.height = static_cast<int16_t>(coverage.height);
    state.left = coverage.left;
    state.top = coverage.top;
    state.mask =
        packCoverage(m_bits, coverage.width, coverage.height, coverage.rows, coverage.stride);
    m_maskBytes += state.mask.size();
}

std::vector<uint8_t> CGlyphBlock::bytes() const
{
    std::vector<SFontGlyph> glyphs;
    glyphs.reserve(m_order.size());
    for (const SUsed &used : m_order) {
        const SState &state = m_states[used.slot];
        glyphs.push_back({state.width, state.height, state.left, state.top, state.advance16,
                          state.mask.empty() ? nullptr : state.mask.data()});
    }
    return writeFontBlock(m_bits, glyphs);
}

} // namespace kivemu
