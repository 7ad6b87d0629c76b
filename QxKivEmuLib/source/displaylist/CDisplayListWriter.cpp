#include "CDisplayListWriter.h"
#include "OperandWords.h"

#include <algorithm>
#include <cstring>

namespace kivemu {

namespace {

constexpr Angle64 FullCircle = 360 * 64;

struct SRange
{
    int64_t start;
    int64_t length;
};

/// Start and length with both ends cut, so that a shape that begins far outside ends where it did.
SRange clampRange(int64_t start, int64_t length)
{
    const int64_t from = clampCoordinate(start);
    return {from, clampLength(start + length - from)};
}

struct SRectangleWords
{
    uint32_t topLeft;
    uint32_t size;
};

SRectangleWords rectangleWords(SPoint topLeft, SPoint size)
{
    const SRange x = clampRange(topLeft.x, size.x);
    const SRange y = clampRange(topLeft.y, size.y);
    return {pair(x.start, y.start), pair(x.length, y.length)};
}

uint32_t wholeTurn(Angle64 angle)
{
    return static_cast<uint32_t>((angle % FullCircle + FullCircle) % FullCircle);
}

bool sameTexels(const CDisplayListWriter::SBitmapSource &a,
                const CDisplayListWriter::SBitmapSource &b)
{
    return a.address == b.address && a.format == b.format;
}

bool sameLayout(const CDisplayListWriter::SBitmapSource &a,
                const CDisplayListWriter::SBitmapSource &b)
{
    return a.stride == b.stride && a.width == b.width && a.height == b.height;
}

uint32_t modeBits(const SBitmapPlacement &placement)
{
    return (placement.filter == EBitmapFilter::Bilinear ? BitmapModeBilinear : 0U) |
           (placement.wrapX == EBitmapWrap::Repeat ? BitmapModeRepeatX : 0U) |
           (placement.wrapY == EBitmapWrap::Repeat ? BitmapModeRepeatY : 0U);
}

/// A transform's constant part after moving its origin, `sixteenths` being texels times 16.
int32_t shifted(int32_t constant, int64_t sixteenths)
{
    return static_cast<int32_t>(
        std::clamp<int64_t>(constant + sixteenths / 16, INT32_MIN, INT32_MAX));
}

} // namespace

CDisplayListWriter::CDisplayListWriter(size_t limitBytes) : m_limitWords(limitBytes / 4)
{
}

/// Counts what is wanted; false when it does not fit, and from then on for all that follows.
bool CDisplayListWriter::begin(size_t words)
{
    m_at.wantedWords += words;
    if (!m_at.isFull && m_words.size() + words + 1 > m_limitWords) {
        m_at.isFull = true;
        m_at.overflowItem = m_at.item.value_or(0);
    }
    return !m_at.isFull;
}

void CDisplayListWriter::command(EOpcode opcode, uint32_t operand)
{
    if (begin(1))
        put(headerWord(opcode, operand));
}

void CDisplayListWriter::clear(Argb colour)
{
    command(EOpcode::Clear, colour);
}

void CDisplayListWriter::setColour(Argb colour)
{
    const Argb changed = colour ^ m_at.state.colour;
    m_at.state.colour = colour;
    if (changed & 0xFFFFFF)
        command(EOpcode::Colour, colour);
    if (changed >> 24)
        command(EOpcode::Alpha, colour >> 24);
}

void CDisplayListWriter::setBlend(bool on)
{
    if (on == m_at.state.blend)
        return;
    m_at.state.blend = on;
    command(EOpcode::Blend, on ? 1 : 0);
}

void CDisplayListWriter::setLineWidth(Sub16 width)
{
    const auto cut = static_cast<Sub16>(clampLength(width));
    if (cut == m_at.state.lineWidth)
        return;
    m_at.state.lineWidth = cut;
    command(EOpcode::LineWidth, static_cast<uint32_t>(cut));
}

void CDisplayListWriter::setScissor(int x, int y, int width, int height)
{
    const SRectangleWords words = rectangleWords({x, y}, {width, height});
    if (!begin(3))
        return;
    put(headerWord(EOpcode::Scissor, 0));
    put(words.topLeft);
    put(words.size);
}

bool CDisplayListWriter::save()
{
    if (m_at.saved.size() == MaxSavedStates)
        return false;
    m_at.saved.push_back(m_at.state);
    command(EOpcode::Save, 0);
    return true;
}

bool CDisplayListWriter::restore()
{
    if (m_at.saved.empty())
        return false;
    m_at.state = m_at.saved.back();
    m_at.saved.pop_back();
    command(EOpcode::Restore, 0);
    return true;
}

void CDisplayListWriter::item(uint32_t id)
{
    if (m_at.item == id)
        return;
    m_at.item = id;
    if (!begin(2))
        return;
    put(headerWord(EOpcode::Item, 0));
    put(id);
}

void CDisplayListWriter::disc(SPoint centre, Sub16 radius)
{
    if (!begin(2))
        return;
    put(headerWord(EOpcode::Disc, clampLength(radius)));
    put(pointWord(centre));
}

void CDisplayListWriter::line(SPoint from, SPoint to)
{
    if (!begin(3))
        return;
    put(headerWord(EOpcode::Line, 0));
    put(pointWord(from));
    put(pointWord(to));
}

void CDisplayListWriter::fillRect(SPoint topLeft, SPoint size, Sub16 radius)
{
    rectangle(EOpcode::FillRect, topLeft, size, radius);
}

void CDisplayListWriter::strokeRect(SPoint topLeft, SPoint size, Sub16 radius)
{
    rectangle(EOpcode::StrokeRect, topLeft, size, radius);
}

void CDisplayListWriter::rectangle(EOpcode opcode, SPoint topLeft, SPoint size, Sub16 radius)
{
    const SRectangleWords words = rectangleWords(topLeft, size);
    if (!begin(3))
        return;
    put(headerWord(opcode, clampLength(radius)));
    put(words.topLeft);
    put(words.size);
}

void CDisplayListWriter::polyline(const SPoint *points, size_t count, bool closed)
{
    path(EOpcode::Polyline, closed ? 1 : 0, points, count);
}

void CDisplayListWriter::polygon(const SPoint *points, size_t count)
{
    path(EOpcode::Polygon, 0, points, count);
}

void CDisplayListWriter::path(EOpcode opcode, uint32_t operand, const SPoint *points, size_t count)
{
    if (count == 0 || !begin(2 * count + 1))
        return;
    for (const SPoint *point = points; point != points + count; ++point) {
        put(headerWord(EOpcode::Vertex, 0));
        put(pointWord(*point));
    }
    put(headerWord(opcode, operand));
}

void CDisplayListWriter::arc(SPoint centre, Sub16 radius, Angle64 start, Angle64 sweep,
                             EArcCaps caps)
{
    if (!begin(4))
        return;
    put(headerWord(EOpcode::Arc, caps == EArcCaps::Butt ? 1 : 0));
    put(pointWord(centre));
    put(clampLength(radius));
    put(pair(wholeTurn(start), std::clamp(sweep, -FullCircle, FullCircle)));
}

void CDisplayListWriter::gradient(SPoint topLeft, SPoint size, Sub16 radius, Angle64 direction,
                                  Argb from, Argb to)
{
    const SRectangleWords words = rectangleWords(topLeft, size);
    if (!begin(6))
        return;
    put(headerWord(EOpcode::Gradient, 0));
    put(words.topLeft);
    put(words.size);
    put(pair(clampLength(radius), wholeTurn(direction)));
    put(from);
    put(to);
}

void CDisplayListWriter::bitmap(const SBitmapSource &source, const SBitmapPlacement &placement)
{
    // The transform starts at the top left: where that is cut, the texels must not move along.
    const int64_t cutX = clampCoordinate(placement.topLeft.x) - placement.topLeft.x;
    const int64_t cutY = clampCoordinate(placement.topLeft.y) - placement.topLeft.y;
    const int32_t transform[6] = {
        placement.a, placement.b, shifted(placement.c, placement.a * cutX + placement.b * cutY),
        placement.d, placement.e, shifted(placement.f, placement.d * cutX + placement.e * cutY)};
    const uint32_t mode = modeBits(placement);
    const bool newTexels = !m_at.bitmap.source || !sameTexels(source, *m_at.bitmap.source);
    const bool newLayout = !m_at.bitmap.source || !sameLayout(source, *m_at.bitmap.source);
    const bool newPalette = source.palette != m_at.bitmap.palette;
    const bool newMode = mode != m_at.bitmap.mode;
    const bool newTransform = std::memcmp(transform, m_at.bitmap.transform, sizeof transform) != 0;
    m_at.bitmap.source = source;
    m_at.bitmap.palette = source.palette;
    m_at.bitmap.mode = mode;
    std::copy(std::begin(transform), std::end(transform), m_at.bitmap.transform);

    if (!begin(3U + (newTexels ? 2U : 0U) + (newLayout ? 3U : 0U) + (newPalette ? 1U : 0U) +
               (newMode ? 1U : 0U) + (newTransform ? 7U : 0U)))
        return;
    if (newTexels) {
        put(headerWord(EOpcode::BitmapSource, std::min(source.format, HeaderOperandMask)));
        put(source.address);
    }
    if (newLayout) {
        put(headerWord(EOpcode::BitmapLayout, 0));
        put(source.stride);
        put(pair(source.width, source.height));
    }
    if (newPalette)
        put(headerWord(EOpcode::BitmapPalette, std::min(source.palette, HeaderOperandMask)));
    if (newMode)
        put(headerWord(EOpcode::BitmapMode, mode));
    if (newTransform) {
        put(headerWord(EOpcode::BitmapTransform, 0));
        for (const int32_t value : transform)
            put(static_cast<uint32_t>(value));
    }
    const SRectangleWords words = rectangleWords(placement.topLeft, placement.size);
    put(headerWord(EOpcode::Bitmap, 0));
    put(words.topLeft);
    put(words.size);
}

CDisplayListWriter::SMark CDisplayListWriter::mark() const
{
    return {m_words.size(), m_at};
}

void CDisplayListWriter::takeBack(const SMark &mark)
{
    m_words.resize(mark.words);
    m_at = mark.at;
    while (!m_fontWords.empty() && m_fontWords.back() >= mark.words)
        m_fontWords.pop_back();
}

void CDisplayListWriter::finish()
{
    ++m_at.wantedWords;
    put(headerWord(EOpcode::End, 0));
}

} // namespace kivemu
