#include "CCommandRunner.h"

#include "BitmapFormats.h"
#include "CRamG.h"
#include "RomFonts.h"
#include "raster/CRasterizer.h"
#include "raster/CSurface.h"

namespace kivemu {

namespace {

constexpr Argb Black = 0xFF000000;
constexpr int NoText = -1;
constexpr int UnknownFont = 0;
constexpr Sub16 Pixel = 16;

uint32_t operand(uint32_t header)
{
    return header & HeaderOperandMask;
}

int lowUnsigned(uint32_t word)
{
    return static_cast<int>(word & 0xFFFF);
}

int highUnsigned(uint32_t word)
{
    return static_cast<int>(word >> 16);
}

int lowSigned(uint32_t word)
{
    return static_cast<int16_t>(word & 0xFFFF);
}

int highSigned(uint32_t word)
{
    return static_cast<int16_t>(word >> 16);
}

SPoint point(uint32_t word)
{
    return {lowSigned(word), highSigned(word)};
}

SPoint extent(uint32_t word)
{
    return {lowUnsigned(word), highUnsigned(word)};
}

EBitmapWrap wrap(uint32_t mode, EBitmapModeBit bit)
{
    return mode & bit ? EBitmapWrap::Repeat : EBitmapWrap::Border;
}

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
    case EOpcode::Bitmap:
        return true;
    default:
        return false;
    }
}

} // namespace

CCommandRunner::CCommandRunner(CRasterizer &rasterizer, const CRamG &memory, CBitmapCache &bitmaps,
                               std::vector<SPoint> &vertices, const std::atomic<bool> *cancelled)
    : m_rasterizer(rasterizer),
      m_memory(memory),
      m_bitmaps(bitmaps),
      m_vertices(vertices),
      m_cancelled(cancelled),
      m_pen{NoText, 0, 0}
{
    m_vertices.clear();
    m_bitmaps.follow(memory);
    m_state.clip = {0, 0, CSurface::MaxSide, CSurface::MaxSide};
    m_rasterizer.setClip(m_state.clip);
}

template<void (CCommandRunner::*Member)(const uint32_t *words)>
void CCommandRunner::call(CCommandRunner &runner, const uint32_t *words)
{
    (runner.*Member)(words);
}

std::array<CCommandRunner::SEntry, 256> CCommandRunner::makeEntries()
{
    using R = CCommandRunner;
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
    add(O::Text, call<&R::text>);
    add(O::Chars, call<&R::chars>);
    add(O::BitmapSource, call<&R::bitmapSource>);
    add(O::BitmapLayout, call<&R::bitmapLayout>);
    add(O::BitmapPalette, call<&R::bitmapPalette>);
    add(O::BitmapTransform, call<&R::bitmapTransform>);
    add(O::BitmapMode, call<&R::bitmapMode>);
    add(O::Bitmap, call<&R::bitmap>);
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
    m_errors.add(findCommand(static_cast<uint8_t>(opcode))->name, what);
}

/// True when a drawing command is to be left out: the item or the frame has drawn too much already,
/// which is told once for each item, or is not wanted any more.
bool CCommandRunner::isLeftOut(EOpcode opcode)
{
    if (m_cancelled && m_cancelled->load(std::memory_order_relaxed)) {
        m_ended = true;
        return true;
    }
    const std::string excess = m_budget.excess(m_rasterizer.work());
    if (excess.empty())
        return false;
    if (!m_isExcessTold)
        fail(opcode, excess);
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

void CCommandRunner::text(const uint32_t *words)
{
    const auto font = static_cast<int>(operand(words[0]));
    const SPoint pen = point(words[1]);
    m_pen = {font, pen.x, (pen.y + Pixel / 2) >> 4};
    if (!romfonts::isFont(font)) {
        fail(EOpcode::Text, "there is no font " + std::to_string(font));
        m_pen.font = UnknownFont; // reported once, its characters are left out
    }
}

void CCommandRunner::chars(const uint32_t *words)
{
    if (m_pen.font == NoText)
        fail(EOpcode::Chars, "there is no TEXT before");
    if (m_pen.font == NoText || m_pen.font == UnknownFont)
        return;
    for (uint32_t rest = operand(words[0]); rest != 0; rest >>= 8) {
        const auto character = static_cast<uint8_t>(rest & 0xFF);
        if (character == 0)
            continue;
        const romfonts::SGlyph *glyph = romfonts::glyph(m_pen.font, character);
        const int64_t x = (m_pen.x + Pixel / 2) >> 4;
        if (x < m_state.clip.right)
            m_rasterizer.drawGlyph(*glyph, static_cast<int>(x), m_pen.baseline, m_state.paint);
        m_pen.x += glyph->advance16;
    }
}

void CCommandRunner::bitmapSource(const uint32_t *words)
{
    m_bitmapKey.format = operand(words[0]);
    m_bitmapKey.address = words[1];
    m_image.reset();
}

void CCommandRunner::bitmapLayout(const uint32_t *words)
{
    m_bitmapKey.stride = words[1];
    m_bitmapKey.width = lowUnsigned(words[2]);
    m_bitmapKey.height = highUnsigned(words[2]);
    m_image.reset();
}

void CCommandRunner::bitmapPalette(const uint32_t *words)
{
    m_bitmapKey.palette = operand(words[0]);
    m_image.reset();
}

void CCommandRunner::bitmapTransform(const uint32_t *words)
{
    const auto value = [&](size_t index) { return static_cast<int32_t>(words[index]); };
    m_placement.a = value(1);
    m_placement.b = value(2);
    m_placement.c = value(3);
    m_placement.d = value(4);
    m_placement.e = value(5);
    m_placement.f = value(6);
}

void CCommandRunner::bitmapMode(const uint32_t *words)
{
    const uint32_t mode = operand(words[0]);
    m_placement.filter =
        mode & BitmapModeBilinear ? EBitmapFilter::Bilinear : EBitmapFilter::Nearest;
    m_placement.wrapX = wrap(mode, BitmapModeRepeatX);
    m_placement.wrapY = wrap(mode, BitmapModeRepeatY);
}

void CCommandRunner::bitmap(const uint32_t *words)
{
    const SBitmapImage *texels = image();
    if (!texels) {
        fail(EOpcode::Bitmap, bitmapFault());
        return;
    }
    m_placement.topLeft = point(words[1]);
    m_placement.size = extent(words[2]);
    m_rasterizer.drawBitmap(*texels, m_placement, m_state.paint);
}

const SBitmapImage *CCommandRunner::image()
{
    if (m_image)
        return m_image.get();
    m_image = m_bitmaps.find(m_memory, m_bitmapKey);
    if (m_image)
        m_budget.countBitmap(m_bitmapKey);
    return m_image.get();
}

std::string CCommandRunner::bitmapFault() const
{
    const auto fits = [](int side) { return side >= 1 && side <= MaxBitmapSide; };
    const SBitmapKey &key = m_bitmapKey;
    if (!fits(key.width) || !fits(key.height))
        return "the size " + std::to_string(key.width) + " x " + std::to_string(key.height) +
               " is not in 1 to " + std::to_string(MaxBitmapSide);
    if (bitmapStride(key.format, key.width) == 0)
        return "there is no bitmap format " + std::to_string(key.format);
    return "the bitmap at " + std::to_string(key.address) + " or its palette reaches beyond the " +
           std::to_string(m_memory.used()) + " bytes of RAM_G that are in use";
}

} // namespace kivemu
