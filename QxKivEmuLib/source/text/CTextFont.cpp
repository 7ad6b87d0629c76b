#include "CTextFont.h"

#include "Paragraph.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <hb-ot.h>
#include <hb.h>

namespace kivemu {

namespace {

constexpr size_t ShapedKept = size_t{2} << 20; ///< bytes, for each font; so the next
constexpr size_t FittedKept = size_t{256} << 10;
constexpr size_t WrappedKept = size_t{1} << 20;
constexpr size_t MasksKept = size_t{8} << 20; ///< of blocks that the frame does not use
constexpr uint64_t FramesKept = 120;
/// Shapes change where a text ends, but hardly ever by more than a letter or two.
constexpr int MostSteps = 4;

size_t weightOf(const SShapedLine &line)
{
    return sizeof line + line.glyphs.size() * sizeof(SShapedGlyph) +
           line.advances.size() * sizeof(int32_t);
}

int32_t to64(double pixels)
{
    constexpr double Farthest = 1 << 16;
    return static_cast<int32_t>(std::floor(std::clamp(pixels, -Farthest, Farthest) * 64));
}

template<typename Number>
void appendBytes(std::string &key, Number number)
{
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    key.append(bytes, sizeof bytes);
}

/// Enough for all extra characters of a usual size.
class CExtraMeter final : public IWorkMeter
{
public:
    bool add(uint64_t work) override
    {
        m_work += work;
        return isOver();
    }
    bool isOver() const { return m_work > MostWork; }

private:
    static constexpr uint64_t MostWork = 40'000'000;
    uint64_t m_work = 0;
};

std::string codeName(char32_t c)
{
    char name[16];
    std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(c));
    return name;
}

bool isBlank(char32_t c)
{
    return c == ' ' || c == 0x3000;
}

} // namespace

CTextFont::CTextFont(SFontLine line, std::string file,
                     std::vector<std::shared_ptr<CTypeface>> typefaces, STextTools &tools)
    : m_line(std::move(line)),
      m_file(std::move(file)),
      m_tools(tools),
      m_faces(std::move(typefaces), static_cast<int>(std::lround(m_line.size * 64))),
      m_shaped(ShapedKept),
      m_fitted(FittedKept),
      m_wrapped(WrappedKept)
{
    const auto pixels = [this](hb_position_t length) {
        return static_cast<int>(std::ceil(std::clamp(length / 64.0, 0.0, m_line.size * 4)));
    };
    hb_font_extents_t extents{};
    hb_font_get_h_extents(m_faces.font(0), &extents);
    m_ascent = pixels(extents.ascender);
    m_descent = pixels(-extents.descender);
    hb_position_t capHeight = 0;
    hb_ot_metrics_get_position_with_fallback(m_faces.font(0), HB_OT_METRICS_TAG_CAP_HEIGHT,
                                             &capHeight);
    m_capHeight = static_cast<int>(std::lround(std::clamp(capHeight / 64.0, 0.0, m_line.size * 4)));
    constexpr char32_t Ellipsis = 0x2026;
    m_ellipsis = "...";
    for (size_t face = 0; face < m_faces.count(); ++face) {
        if (m_faces.has(face, Ellipsis))
            m_ellipsis = "\xE2\x80\xA6";
    }
}

const SShapedLine &CTextFont::shape(std::string_view utf8)
{
    const std::string key(utf8);
    if (const SShapedLine *known = m_shaped.find(key))
        return *known;
    const SParagraph paragraph = makeParagraph(decodeUtf8(utf8, MaxText), m_faces, m_tools.breaks);
    SShapedLine line = m_tools.shaper.shape(paragraph, 0, paragraph.text().size(), m_faces);
    const size_t weight = weightOf(line);
    return m_shaped.add(key, std::move(line), weight);
}

int32_t CTextFont::widthOf(std::string_view utf8)
{
    return shape(utf8).width;
}

const std::string &CTextFont::fit(std::string_view utf8, double width)
{
    const int32_t width64 = to64(width);
    std::string key(utf8);
    appendBytes(key, width64);
    if (const std::string *known = m_fitted.find(key))
        return *known;
    std::string text = fitted(utf8, width64, false);
    const size_t weight = text.size();
    return m_fitted.add(key, std::move(text), weight);
}

std::string CTextFont::fitted(std::string_view utf8, int32_t width, bool isCutAnyway)
{
    const SShapedLine &whole = shape(utf8);
    if (!isCutAnyway && whole.width <= width)
        return std::string(utf8);
    const SDecodedText decoded = decodeUtf8(utf8, MaxText);
    const std::vector<bool> breaks = m_tools.breaks.clusters(decoded.text);
    std::vector<size_t> ends{0}; // of clusters, in bytes
    std::vector<int64_t> widths{0};
    int64_t sum = 0;
    for (size_t at = 0; at < decoded.text.size(); ++at) {
        if (at > 0 && breaks[at]) {
            ends.push_back(decoded.offsets[at]);
            widths.push_back(sum);
        }
        sum += whole.advances[at];
    }
    if (!decoded.text.empty()) {
        ends.push_back(decoded.offsets.back());
        widths.push_back(sum);
    }
    const auto cutText = [&](size_t count) {
        size_t length = ends[count];
        while (length > 0 && utf8[length - 1] == ' ')
            --length;
        return std::string(utf8.substr(0, length)) + m_ellipsis;
    };
    const auto fits = [&](size_t count) { return widthOf(cutText(count)) <= width; };
    const int32_t room = width - widthOf(m_ellipsis);
    if (room < 0)
        return {};
    size_t count = 0;
    while (count + 1 < ends.size() && widths[count + 1] <= room)
        ++count;
    for (int step = 0; step < MostSteps && count + 1 < ends.size() && fits(count + 1); ++step)
        ++count;
    for (int step = 0; count > 0 && !fits(count); ++step)
        count -= step < MostSteps ? 1 : count / 4 + 1;
    return cutText(count);
}

const SWrappedText &CTextFont::wrap(std::string_view utf8, double width, size_t mostLines)
{
    const int32_t width64 = to64(width);
    mostLines = std::clamp<size_t>(mostLines, 1, MaxLines);
    std::string key(utf8);
    appendBytes(key, width64);
    appendBytes(key, mostLines);
    if (const SWrappedText *known = m_wrapped.find(key))
        return *known;
    SWrappedText wrapped;
    for (size_t from = 0; from <= utf8.size();) {
        const size_t end = std::min(utf8.find('\n', from), utf8.size());
        const bool isLast = utf8.find_first_not_of(" \r\n", end) == std::string_view::npos;
        if (!wrapSection(utf8.substr(from, end - from), isLast, width64, mostLines, wrapped))
            break;
        from = end + 1;
    }
    size_t weight = 0;
    for (const SShapedLine &line : wrapped.lines)
        weight += weightOf(line);
    return m_wrapped.add(key, std::move(wrapped), weight);
}

/// False when the text ends here because there is room for no more lines.
bool CTextFont::wrapSection(std::string_view section, bool isLast, int32_t width, size_t mostLines,
                            SWrappedText &wrapped)
{
    const SParagraph paragraph =
        makeParagraph(decodeUtf8(section, MaxText), m_faces, m_tools.breaks);
    const std::u32string &text = paragraph.text();
    const SShapedLine whole = m_tools.shaper.shape(paragraph, 0, text.size(), m_faces);
    const std::vector<bool> lineEnds = m_tools.breaks.lines(text);
    const std::vector<bool> clusterEnds = m_tools.breaks.clusters(text);
    const auto shapeTrimmed = [&](size_t from, size_t to) {
        while (to > from && isBlank(text[to - 1]))
            --to;
        return m_tools.shaper.shape(paragraph, from, to, m_faces);
    };
    size_t from = 0;
    do {
        std::vector<size_t> ends; // where this line may end
        size_t clusterEnd = from;
        int64_t sum = 0;
        size_t at = from;
        for (; at < text.size(); ++at) {
            const bool fits = sum <= width;
            if (at > from && clusterEnds[at] && (fits || clusterEnd == from))
                clusterEnd = at;
            if (at > from && lineEnds[at] && fits)
                ends.push_back(at);
            sum += whole.advances[at];
            if (sum > width && !isBlank(text[at]) && clusterEnd != from)
                break;
            if (isBlank(text[at]) && sum > width) // blanks may hang out
                sum = std::min<int64_t>(sum, width);
        }
        const bool isRest = at == text.size() && sum <= width;
        const bool isLastLine = wrapped.lines.size() + 1 == mostLines;
        if (isLastLine && (!isRest || !isLast)) {
            wrapped.isWhole = false;
            wrapped.lines.push_back(
                shape(fitted(section.substr(paragraph.decoded.offsets[from]), width, true)));
            return false;
        }
        SShapedLine line;
        size_t to = isRest ? text.size() : ends.empty() ? clusterEnd : ends.back();
        if (to == from)
            to = text.size(); // a single cluster, however wide
        line = shapeTrimmed(from, to);
        for (int step = 0; step < MostSteps && !isRest && line.width > width && ends.size() > 1;
             ++step) {
            ends.pop_back();
            to = ends.back();
            line = shapeTrimmed(from, to);
        }
        wrapped.lines.push_back(std::move(line));
        from = to;
        while (from < text.size() && isBlank(text[from]))
            ++from;
    } while (from < text.size());
    return true;
}

CGlyphBlock &CTextFont::block(double degrees, uint64_t frame)
{
    const auto rounded = static_cast<int>(std::lround(degrees * 64));
    const int angle64 =
        ((rounded % CGlyphBlock::FullTurn) + CGlyphBlock::FullTurn) % CGlyphBlock::FullTurn;
    auto known = std::find_if(m_blocks.begin(), m_blocks.end(),
                              [&](const auto &block) { return block->angle64() == angle64; });
    if (known == m_blocks.end())
        known =
            m_blocks.insert(known, std::make_unique<CGlyphBlock>(m_faces, m_line.bits, angle64));
    CGlyphBlock &block = **known;
    const bool isNew = block.beginFrame(frame);
    if (isNew && angle64 == 0) // a firmware's texts are upright
        addExtra(block);
    return block;
}

/// The first character that no face has; 0 when there is none.
char32_t CTextFont::firstLacking(const std::u32string &characters) const
{
    for (const char32_t c : characters) {
        bool isThere = false;
        for (size_t face = 0; face < m_faces.count() && !isThere; ++face)
            isThere = m_faces.has(face, c);
        if (!isThere)
            return c;
    }
    return 0;
}

/// What a font has besides takes nothing from the item that happens to be the first to use it.
void CTextFont::addExtra(CGlyphBlock &block)
{
    CExtraMeter meter;
    for (const char32_t c : m_line.extra)
        block.use(m_faces.slotOfCharacter(c), meter);
    if (meter.isOver() || m_line.hasMoreExtra)
        block.leaveOut("there are too many extra characters, and some are left out");
    else if (const char32_t lacking = firstLacking(m_line.extra))
        block.leaveOut("of the extra characters, " + codeName(lacking) +
                       " is in no font; a box stands for it and for others like it");
}

void CTextFont::endFrame(uint64_t frame)
{
    size_t unused = 0;
    for (auto block = m_blocks.begin(); block != m_blocks.end();) {
        if ((*block)->lastFrame() != frame)
            unused += (*block)->maskBytes();
        const bool isOld = (*block)->lastFrame() + FramesKept < frame || unused > MasksKept;
        block = isOld ? m_blocks.erase(block) : std::next(block);
    }
}

} // namespace kivemu
