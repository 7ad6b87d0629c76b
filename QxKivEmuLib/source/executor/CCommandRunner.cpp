#include "CCommandRunner.h"

#include "raster/CRasterizer.h"
#include "raster/CSurface.h"

namespace kivemu {

namespace {

constexpr Argb Black = 0xFF000000;

bool isDrawing(EOpcode opcode)
{
    switch (opcode) {
    case EOpcode::Clear:
    case EOpcode::Disc:
    case EOpcode::Line:
    case EOpcode::FillRect:
    case EOpcode::StrokeRect:
    case EOpcode::Polyline:
    case EOpcode::Polygon:
    case EOpcode::Arc:
    case EOpcode::Gradient:
    case EOpcode::Chars:
    case EOpcode::Glyph:
    case EOpcode::Bitmap:
        return true;
    default:
        return false;
    }
}

} // namespace

CCommandRunner::CCommandRunner(CRasterizer &rasterizer, const CRamG &memory, SCaches &caches,
                               const std::atomic<bool> *cancelled)
    : m_rasterizer(rasterizer),
      m_vertices(caches.vertices),
      m_cancelled(cancelled),
      m_texts({rasterizer, memory, m_budget, m_errors, m_state}, caches.glyphs),
      m_bitmaps({rasterizer, memory, m_budget, m_errors, m_state}, caches.bitmaps)
{
    m_vertices.clear();
    m_state.clip = {0, 0, CSurface::MaxSide, CSurface::MaxSide};
    m_rasterizer.setClip(m_state.clip);
}

template<void (CCommandRunner::*Member)(const uint32_t *words)>
void CCommandRunner::call(CCommandRunner &runner, const uint32_t *words)
{
    (runner.*Member)(words);
}

template<void (CTextCommands::*Member)(const uint32_t *words)>
void CCommandRunner::callTexts(CCommandRunner &runner, const uint32_t *words)
{
    (runner.m_texts.*Member)(words);
}

template<void (CBitmapCommands::*Member)(const uint32_t *words)>
void CCommandRunner::callBitmaps(CCommandRunner &runner, const uint32_t *words)
{
    (runner.m_bitmaps.*Member)(words);
}

std::array<CCommandRunner::SEntry, 256> CCommandRunner::makeEntries()
{
    using R = CCommandRunner;
    using T = CTextCommands;
    using B = CBitmapCommands;
    using O = EOpcode;
    std::array<SEntry, 256> entries{};
    const auto add = [&](EOpcode opcode, Function function) {
        const auto code = static_cast<uint8_t>(opcode);
        const SCommand *command = findCommand(code);
        entries[code] = {function, isDrawing(opcode), command->headerMax, command->operandWords()};
    };
    add(O::End, call<&R::end>);
    add(O::Clear, call<&R::clear>);
    add(O::Colour, call<&R::colour>);
    add(O::Alpha, call<&R::alpha>);
    add(O::Blend, call<&R::blend>);
    add(O::LineWidth, call<&R::lineWidth>);
    add(O::Scissor, call<&R::scissor>);
    add(O::Save, call<&R::save>);
    add(O::Restore, call<&R::restore>);
    add(O::Item, call<&R::item>);
    add(O::Disc, call<&R::disc>);
    add(O::Line, call<&R::line>);
    add(O::FillRect, call<&R::fillRect>);
    add(O::StrokeRect, call<&R::strokeRect>);
    add(O::Vertex, call<&R::vertex>);
    add(O::Polyline, call<&R::polyline>);
    add(O::Polygon, call<&R::polygon>);
    add(O::Arc, call<&R::arc>);
    add(O::Gradient, call<&R::gradient>);
    add(O::Text, callTexts<&T::text>);
    add(O::Chars, callTexts<&T::chars>);
    add(O::Font, callTexts<&T::font>);
    add(O::Glyph, callTexts<&T::glyph>);
    add(O::BitmapSource, callBitmaps<&B::source>);
    add(O::BitmapLayout, callBitmaps<&B::layout>);
    add(O::BitmapPalette, callBitmaps<&B::palette>);
    add(O::BitmapTransform, callBitmaps<&B::transform>);
    add(O::BitmapMode, callBitmaps<&B::mode>);
    add(O::Bitmap, callBitmaps<&B::draw>);
    return entries;
}

std::vector<SExecutionError> CCommandRunner::run(const uint32_t *words, size_t count)
{
    // A list that starts with CLEAR covers the frame itself.
    if (count == 0 || words[0] >> 24 != static_cast<uint32_t>(EOpcode::Clear))
        m_rasterizer.clear(Black);

    size_t index = 0;
    while (index < count && !m_ended) {
        m_errors.setWord(index);
        index += step(words + index, count - index);
    }
    if (!m_ended) {
        m_errors.setWord(count);
        dropVertices();
        fail(EOpcode::End, "is missing at the end of the list");
    }
    return m_errors.take();
}

/// Executes the command at `words`; gives how many words it takes, at most `count`.
size_t CCommandRunner::step(const uint32_t *words, size_t count)
{
    static const std::array<SEntry, 256> entries = makeEntries();
    const uint32_t header = words[0];
    const SEntry &entry = entries[header >> 24];
    if (!entry.function) {
        m_errors.add("WORD", "there is no opcode " + std::to_string(header >> 24));
        return 1;
    }
    const auto opcode = static_cast<EOpcode>(header >> 24);
    if (entry.operandWords >= count) {
        fail(opcode, "the list ends within its operands");
        return count;
    }
    if (operand(header) > entry.headerMax)
        fail(opcode, "the header's operand " + std::to_string(operand(header)) + " is above " +
                         std::to_string(entry.headerMax));
    else if (!entry.draws || !isLeftOut(opcode))
        entry.function(*this, words);
    return 1 + entry.operandWords;
}

void CCommandRunner::fail(EOpcode opcode, const std::string &what)
{
    m_errors.add(opcode, what);
}

/// True when a drawing command is to be left out: the item or the frame has drawn too much already,
/// which is told once for each item, or is not wanted any more.
bool CCommandRunner::isLeftOut(EOpcode opcode)
{
    if (m_cancelled && m_cancelled->load(std::memory_order_relaxed)) {
        m_ended = true;
        return true;
    }
    if (!m_budget.isExceeded(m_rasterizer.work()))
        return false;
    if (!m_isExcessTold)
        fail(opcode, m_budget.excess(m_rasterizer.work()));
    m_isExcessTold = true;
    m_vertices.clear();
    m_pathTooLong = false;
    return true;
}

/// A path that nothing has drawn must not become part of the next one.
void CCommandRunner::dropVertices()
{
    if (!m_vertices.empty())
        fail(EOpcode::Vertex, std::to_string(m_vertices.size()) + " vertices were never drawn");
    m_vertices.clear();
    m_pathTooLong = false;
}

void CCommandRunner::end(const uint32_t *)
{
    dropVertices();
    m_ended = true;
}

void CCommandRunner::clear(const uint32_t *words)
{
    m_rasterizer.clear(Black | operand(words[0]));
}

void CCommandRunner::colour(const uint32_t *words)
{
    m_state.paint.colour = (m_state.paint.colour & 0xFF000000) | operand(words[0]);
}

void CCommandRunner::alpha(const uint32_t *words)
{
    m_state.paint.colour = operand(words[0]) << 24 | (m_state.paint.colour & 0xFFFFFF);
}

void CCommandRunner::blend(const uint32_t *words)
{
    m_state.paint.blend = operand(words[0]) != 0;
}

void CCommandRunner::lineWidth(const uint32_t *words)
{
    m_state.lineWidth = static_cast<Sub16>(operand(words[0]));
}

void CCommandRunner::scissor(const uint32_t *words)
{
    const SPoint topLeft = point(words[1]);
    const SPoint size = extent(words[2]);
    m_state.clip = {topLeft.x, topLeft.y, topLeft.x + size.x, topLeft.y + size.y};
    m_rasterizer.setClip(m_state.clip);
}

void CCommandRunner::save(const uint32_t *)
{
    if (m_savedCount == m_saved.size())
        fail(EOpcode::Save, "more than " + std::to_string(m_saved.size()) + " states");
    else
        m_saved[m_savedCount++] = m_state;
}

void CCommandRunner::restore(const uint32_t *)
{
    if (m_savedCount == 0) {
        fail(EOpcode::Restore, "no state was saved");
        return;
    }
    m_state = m_saved[--m_savedCount];
    m_rasterizer.setClip(m_state.clip);
}

void CCommandRunner::item(const uint32_t *words)
{
    dropVertices();
    m_errors.setItem(words[1]);
    m_budget.beginItem(m_rasterizer.work());
    m_isExcessTold = false;
}

void CCommandRunner::disc(const uint32_t *words)
{
    m_rasterizer.fillDisc(point(words[1]), static_cast<Sub16>(operand(words[0])), m_state.paint);
}

void CCommandRunner::line(const uint32_t *words)
{
    m_rasterizer.drawLine(point(words[1]), point(words[2]), m_state.lineWidth, m_state.paint);
}

void CCommandRunner::fillRect(const uint32_t *words)
{
    m_rasterizer.fillRect(point(words[1]), extent(words[2]), static_cast<Sub16>(operand(words[0])),
                          m_state.paint);
}

void CCommandRunner::strokeRect(const uint32_t *words)
{
    m_rasterizer.strokeRect(point(words[1]), extent(words[2]),
                            static_cast<Sub16>(operand(words[0])), m_state.lineWidth,
                            m_state.paint);
}

void CCommandRunner::vertex(const uint32_t *words)
{
    if (m_vertices.size() < MaxVertices) {
        m_vertices.push_back(point(words[1]));
    } else if (!m_pathTooLong) {
        m_pathTooLong = true;
        fail(EOpcode::Vertex, "more than " + std::to_string(MaxVertices) + " vertices");
    }
}

void CCommandRunner::polyline(const uint32_t *words)
{
    if (m_vertices.empty())
        fail(EOpcode::Polyline, "there are no vertices");
    else
        m_rasterizer.strokePolyline(m_vertices.data(), static_cast<int>(m_vertices.size()),
                                    operand(words[0]) != 0, m_state.lineWidth, m_state.paint);
    m_vertices.clear();
    m_pathTooLong = false;
}

void CCommandRunner::polygon(const uint32_t *)
{
    if (m_vertices.empty())
        fail(EOpcode::Polygon, "there are no vertices");
    else
        m_rasterizer.fillPolygon(m_vertices.data(), static_cast<int>(m_vertices.size()),
                                 m_state.paint);
    m_vertices.clear();
    m_pathTooLong = false;
}

void CCommandRunner::arc(const uint32_t *words)
{
    if (words[2] > UINT16_MAX) {
        fail(EOpcode::Arc, "the radius " + std::to_string(words[2]) + " is above 65535");
        return;
    }
    m_rasterizer.strokeArc(point(words[1]), static_cast<Sub16>(words[2]), lowSigned(words[3]),
                           highSigned(words[3]), m_state.lineWidth,
                           operand(words[0]) ? EArcCaps::Butt : EArcCaps::Round, m_state.paint);
}

void CCommandRunner::gradient(const uint32_t *words)
{
    m_rasterizer.fillGradient(point(words[1]), extent(words[2]), lowUnsigned(words[3]),
                              highUnsigned(words[3]), words[4], words[5], m_state.paint.blend);
}

} // namespace kivemu
