#include "ScreenList.h"

#include "RomFonts.h"
#include "displaylist/CDisplayListWriter.h"
#include "executor/BitmapFormats.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace bench {

namespace {

using namespace kivemu;

constexpr size_t DisplayListBytes = 32768;
constexpr size_t MemoryBytes = 1 << 20;
constexpr int FirstRegularFont = 26;

Sub16 sub16(double pixels)
{
    return static_cast<Sub16>(std::lround(pixels * 16));
}

SPoint point(double x, double y)
{
    return {sub16(x), sub16(y)};
}

std::vector<SPoint> points(const std::vector<SPointF> &path)
{
    std::vector<SPoint> result;
    for (const SPointF &one : path)
        result.push_back(point(one.x, one.y));
    return result;
}

/// One channel of a premultiplied texel, undone and cut to four bits.
uint32_t nibble(uint32_t texel, int shift)
{
    const uint32_t alpha = texel >> 24;
    const uint32_t value = texel >> shift & 0xFF;
    return alpha ? std::min((value * 255 + alpha / 2) / alpha, 255U) >> 4 : 0;
}

std::vector<uint8_t> argb4(const SPicture &picture)
{
    std::vector<uint8_t> bytes;
    for (const uint32_t texel : picture.pixels) {
        bytes.push_back(static_cast<uint8_t>(nibble(texel, 8) << 4 | nibble(texel, 0)));
        bytes.push_back(static_cast<uint8_t>((texel >> 28) << 4 | nibble(texel, 16)));
    }
    return bytes;
}

/// Writes the sections of one screen.
class CScreenWriter
{
public:
    explicit CScreenWriter(const SStandardScreen &screen)
        : m_screen(screen), m_memory(MemoryBytes), m_writer(DisplayListBytes)
    {
        for (const SPicture &picture : screen.pictures) {
            const auto bytes = argb4(picture);
            m_addresses.push_back(m_memory.append(bytes.data(), bytes.size()).value_or(0));
        }
        m_writer.clear(screen.background);
    }

    void section(ESection section)
    {
        m_writer.item(static_cast<uint32_t>(section) + 1);
        switch (section) {
        case ESection::Background:
            return background();
        case ESection::Polygons:
            return polygons();
        case ESection::Bars:
            return boxes(m_screen.bars);
        case ESection::Buttons:
            return boxes(m_screen.buttons);
        case ESection::Gauges:
            return gauges();
        case ESection::Plot:
            return plot();
        case ESection::Dots:
            return dots();
        case ESection::Pictures:
            return pictures();
        case ESection::TurnedPictures:
            return turnedPictures();
        case ESection::Labels:
            return labels();
        case ESection::Overlays:
            return overlays();
        }
    }

    SScreenList finish()
    {
        m_writer.finish();
        if (m_writer.overflowItem())
            std::abort(); // a part of the work would be left out
        return {m_writer.words(), m_memory};
    }

private:
    void background()
    {
        for (const auto &one : m_screen.gradients)
            m_writer.gradient(point(one.x, one.y), point(one.width, one.height), 0, 90 * 64,
                              one.top, one.bottom);
    }

    void polygons()
    {
        for (const auto &one : m_screen.polygons) {
            const auto path = points(one.points);
            m_writer.setColour(one.colour);
            m_writer.polygon(path.data(), path.size());
        }
    }

    void boxes(const std::vector<SRoundedBox> &boxes)
    {
        for (const auto &one : boxes) {
            m_writer.setColour(one.fill);
            m_writer.fillRect(point(one.x, one.y), point(one.width, one.height), sub16(one.radius));
            if (one.borderWidth > 0) {
                m_writer.setColour(one.border);
                m_writer.setLineWidth(sub16(one.borderWidth));
                m_writer.strokeRect(point(one.x, one.y), point(one.width, one.height),
                                    sub16(one.radius));
            }
        }
    }

    void gauges()
    {
        for (const auto &one : m_screen.gauges) {
            m_writer.setColour(one.colour);
            m_writer.setLineWidth(sub16(one.width));
            m_writer.line(point(one.from.x, one.from.y), point(one.to.x, one.to.y));
        }
    }

    void plot()
    {
        const auto path = points(m_screen.plot);
        m_writer.setColour(m_screen.plotColour);
        m_writer.setLineWidth(sub16(m_screen.plotWidth));
        m_writer.polyline(path.data(), path.size(), false);
    }

    void dots()
    {
        for (const auto &one : m_screen.dots) {
            m_writer.setColour(one.colour);
            m_writer.disc(point(one.x, one.y), sub16(one.radius));
        }
    }

    CDisplayListWriter::SBitmapSource source(size_t index) const
    {
        const SPicture &picture = m_screen.pictures[index];
        const auto format = static_cast<uint32_t>(EBitmapFormat::Argb4);
        return {m_addresses[index],
                format,
                bitmapStride(format, picture.width),
                static_cast<uint16_t>(picture.width),
                static_cast<uint16_t>(picture.height),
                0};
    }

    void pictures()
    {
        m_writer.setColour(0xFFFFFFFF);
        for (const auto &one : m_screen.placed) {
            const SPicture &picture = m_screen.pictures[one.picture];
            SBitmapPlacement place;
            place.topLeft = point(one.x, one.y);
            place.size = point(picture.width, picture.height);
            m_writer.bitmap(source(one.picture), place);
        }
    }

    void turnedPictures()
    {
        m_writer.setColour(0xFFFFFFFF);
        for (const auto &one : m_screen.turned) {
            const SPicture &picture = m_screen.pictures[one.picture];
            m_writer.bitmap(source(one.picture),
                            turnedPlacement(picture.width, picture.height, one));
        }
    }

    void labels()
    {
        for (const auto &one : m_screen.labels) {
            m_writer.setColour(one.colour);
            m_writer.text(romFont(one.emSize), point(one.x, one.baseline), one.text);
        }
    }

    void overlays()
    {
        for (const auto &one : m_screen.overlays) {
            m_writer.setColour(one.colour);
            m_writer.fillRect(point(one.x, one.y), point(one.width, one.height), 0);
        }
    }

    const SStandardScreen &m_screen;
    CRamG m_memory;
    CDisplayListWriter m_writer;
    std::vector<uint32_t> m_addresses;
};

} // namespace

int romFont(int emSize)
{
    int best = FirstRegularFont;
    for (int font = FirstRegularFont; font <= romfonts::LastFont; ++font) {
        if (std::abs(romfonts::emSize(font) - emSize) < std::abs(romfonts::emSize(best) - emSize))
            best = font;
    }
    return best;
}

/// The rectangle around the turned picture, and for its pixels the way back to the texels.
SBitmapPlacement turnedPlacement(int width, int height, const STurnedPicture &turned)
{
    const double angle = turned.angle * 3.14159265358979323846 / 180;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const double reachX =
        turned.scale * (width / 2.0 * std::abs(cosine) + height / 2.0 * std::abs(sine));
    const double reachY =
        turned.scale * (width / 2.0 * std::abs(sine) + height / 2.0 * std::abs(cosine));
    const double left = std::floor(turned.centre.x - reachX - 1);
    const double top = std::floor(turned.centre.y - reachY - 1);
    const auto fixed = [](double value) {
        return static_cast<int32_t>(std::lround(value * 65536));
    };
    SBitmapPlacement place;
    place.topLeft = point(left, top);
    place.size = point(std::ceil(2 * reachX + 3), std::ceil(2 * reachY + 3));
    place.a = fixed(cosine / turned.scale);
    place.b = fixed(sine / turned.scale);
    place.d = fixed(-sine / turned.scale);
    place.e = fixed(cosine / turned.scale);
    const double x = left - turned.centre.x;
    const double y = top - turned.centre.y;
    place.c = fixed((cosine * x + sine * y) / turned.scale + width / 2.0);
    place.f = fixed((cosine * y - sine * x) / turned.scale + height / 2.0);
    place.filter = EBitmapFilter::Bilinear;
    return place;
}

SScreenList screenList(const SStandardScreen &screen, std::optional<ESection> section)
{
    CScreenWriter writer(screen);
    for (int i = 0; i < SectionCount; ++i) {
        const auto one = static_cast<ESection>(i);
        if (!section || *section == one)
            writer.section(one);
    }
    return writer.finish();
}

SScreenList emptyList()
{
    SStandardScreen nothing{};
    nothing.background = 0xFF000000;
    return CScreenWriter(nothing).finish();
}

} // namespace bench
