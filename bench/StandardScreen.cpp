#include "StandardScreen.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace bench {
namespace {

constexpr double Pi = 3.14159265358979323846;

/// The same numbers on every machine, unlike the standard library's distributions.
class CNumbers
{
public:
    double unit()
    {
        m_state = m_state * 1664525u + 1013904223u;
        return (m_state >> 8) / 16777216.0;
    }
    double between(double low, double high) { return low + (high - low) * unit(); }

private:
    uint32_t m_state = 12345;
};

uint32_t opaque(uint32_t rgb)
{
    return 0xFF000000u | rgb;
}

uint32_t withAlpha(uint32_t rgb, uint32_t alpha)
{
    return alpha << 24 | rgb;
}

SPointF onCircle(SPointF centre, double radius, double angle)
{
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

/// Lays the parts out: positions are given for 480 x 272 and stretched to the frame.
class CScreenBuilder
{
public:
    CScreenBuilder(int width, int height)
        : m_sx(width / 480.0), m_sy(height / 272.0), m_scale(std::min(m_sx, m_sy))
    {
        m_screen.width = width;
        m_screen.height = height;
        m_screen.background = opaque(0x101418);
    }

    // The order of the calls fixes which numbers each part gets.
    SStandardScreen build()
    {
        addGradients();
        addPolygons();
        addBars();
        addButtons();
        addGauges();
        addPlot();
        addDots();
        addPictures();
        addLabels();
        addOverlays();
        return std::move(m_screen);
    }

private:
    void addGradients()
    {
        const double w = m_screen.width;
        const double h = m_screen.height;
        const double lower = std::floor(h * 0.70);
        m_screen.gradients = {{0, 0, w, std::floor(h * 0.45), opaque(0x24476B), opaque(0x0B1622)},
                              {0, lower, w, h - lower, opaque(0x18222C), opaque(0x3C5A3C)}};
    }

    void addPolygons()
    {
        const std::array<uint32_t, 3> colours = {opaque(0x2E8B57), withAlpha(0xC0562E, 160),
                                                 withAlpha(0x5A4FCF, 160)};
        for (size_t i = 0; i < colours.size(); ++i) {
            SFilledPolygon star{{}, colours[i]};
            const SPointF centre{(90 + 150.0 * static_cast<double>(i)) * m_sx, 130 * m_sy};
            for (int corner = 0; corner < 30; ++corner) {
                const double radius =
                    (corner % 2 ? 34 : 52) * m_scale * m_numbers.between(0.9, 1.1);
                star.points.push_back(onCircle(centre, radius, corner * 2 * Pi / 30));
            }
            m_screen.polygons.push_back(star);
        }
    }

    void addBars()
    {
        for (int i = 0; i < 6; ++i) {
            const double x = (12.5 + (i % 3) * 155) * m_sx;
            const double y = (238.5 + 16 * (i / 3)) * m_sy;
            const double w = 140 * m_sx;
            const double h = 10 * m_scale;
            m_screen.bars.push_back({x, y, w, h, h / 2, opaque(0x26303A), 0, 0});
            m_screen.bars.push_back(
                {x, y, w * m_numbers.between(0.25, 0.95), h, h / 2, opaque(0x4FA3E0), 0, 0});
        }
    }

    void addButtons()
    {
        for (int i = 0; i < 24; ++i)
            m_screen.buttons.push_back(
                {(6.25 + (i % 6) * 79) * m_sx, (8.25 + (i / 6) * 36) * m_sy, 70 * m_sx, 28 * m_sy,
                 8, opaque(i % 2 ? 0x35506B : 0x2D4459), opaque(0x9FC3E6), 1.5});
    }

    void addGauges()
    {
        const auto angle = [](double share) { return (140 + 260 * share) * Pi / 180; };
        for (int gauge = 0; gauge < 4; ++gauge) {
            const SPointF centre{(62 + gauge * 118) * m_sx, 190 * m_sy};
            const double radius = 38 * m_scale;
            for (int i = 0; i < 60; ++i) {
                const uint32_t colour = i < 40 ? 0x3FBF6F : i < 52 ? 0xE0B030 : 0xD84040;
                m_screen.gauges.push_back({onCircle(centre, radius, angle(i / 60.0)),
                                           onCircle(centre, radius, angle((i + 1) / 60.0)),
                                           7 * m_scale, opaque(colour)});
            }
            const double needle = angle(m_numbers.between(0.1, 0.9));
            m_screen.gauges.push_back(
                {centre, onCircle(centre, 0.85 * radius, needle), 3, opaque(0xF0F0F0)});
        }
    }

    void addPlot()
    {
        for (int i = 0; i < 200; ++i) {
            const double wave = 30 * std::sin(i * 0.16) + 12 * std::sin(i * 0.71);
            m_screen.plot.push_back(
                {(20 + 440 * i / 199.0) * m_sx, (100 + wave + m_numbers.between(-4, 4)) * m_sy});
        }
        m_screen.plotWidth = 2;
        m_screen.plotColour = opaque(0xFFD75F);
    }

    void addDots()
    {
        for (int i = 0; i < 200; ++i) {
            const double x = m_numbers.between(4, m_screen.width - 4.0);
            const double y = m_numbers.between(4, m_screen.height - 4.0);
            const double radius = m_numbers.between(3, 6);
            const auto lighter = static_cast<uint32_t>(m_numbers.unit() * 0x3F);
            m_screen.dots.push_back({x, y, radius, opaque(0x80A0C0 + lighter * 0x010101)});
        }
    }

    void addPictures()
    {
        for (int i = 0; i < 6; ++i) {
            m_screen.pictures.push_back(picture(i));
            m_screen.placed.push_back({static_cast<size_t>(i),
                                       static_cast<int>(std::floor((14 + 78 * i) * m_sx)),
                                       static_cast<int>(std::floor(150 * m_sy))});
        }
        for (int i = 0; i < 4; ++i)
            m_screen.turned.push_back({static_cast<size_t>(i),
                                       {(70 + 115 * i) * m_sx, 70 * m_sy},
                                       1.15 + 0.2 * i,
                                       15.0 + 25 * i});
    }

    /// A disc with a soft edge, in colours that RGB565 has.
    static SPicture picture(int variant)
    {
        constexpr int Side = 64;
        SPicture result{Side, Side, {}};
        for (int y = 0; y < Side; ++y)
            for (int x = 0; x < Side; ++x) {
                const double fromCentre = std::hypot(x - 31.5, y - 31.5);
                const double share = fromCentre < 22 ? 1 : std::max(0.0, (31 - fromCentre) / 9);
                const int alpha = static_cast<int>(share * 255 + 0.5);
                const auto channel = [alpha](int value, int max) {
                    return static_cast<uint32_t>((value & max) * 255 / max * alpha / 255);
                };
                result.pixels.push_back(static_cast<uint32_t>(alpha) << 24 |
                                        channel((x >> 1) ^ (variant * 5), 31) << 16 |
                                        channel(y, 63) << 8 |
                                        channel(((x + y) >> 2) + variant, 31));
            }
        return result;
    }

    void addLabels()
    {
        static const std::array<const char *, 8> texts = {
            "Flow 12.5 m3", "Pressure 3.4", "Motor RPM 97", "Tank level 8",
            "Valve open 1", "Setpoint 250", "Alarm reset!", "Line speed 4"};
        static const std::array<int, 4> sizes = {16, 20, 24, 28};
        for (size_t i = 0; i < 40; ++i) {
            const auto column = static_cast<double>(i % 4);
            const auto row = static_cast<double>(i / 4);
            m_screen.labels.push_back({static_cast<int>(std::floor((4 + column * 112) * m_sx)),
                                       static_cast<int>(std::floor((24 + row * 26.5) * m_sy)),
                                       sizes[(i / 4 + i) % 4], opaque(i % 2 ? 0xFFFFFF : 0xD0E4FF),
                                       texts[(i * 3) % 8]});
        }
    }

    void addOverlays()
    {
        for (int i = 0; i < 8; ++i)
            m_screen.overlays.push_back(
                {static_cast<int>((10 + (i % 4) * 88) * m_sx),
                 static_cast<int>((12 + (i / 4) * 130) * m_sy), 200, 100,
                 withAlpha(0x203040 + static_cast<uint32_t>(i) * 0x0C0806, 96)});
    }

    CNumbers m_numbers;
    const double m_sx;
    const double m_sy;
    const double m_scale;
    SStandardScreen m_screen{};
};

} // namespace

SStandardScreen standardScreen(int width, int height)
{
    return CScreenBuilder(width, height).build();
}

const char *sectionName(ESection section)
{
    static const std::array<const char *, SectionCount> names = {
        "background", "polygons",        "bars",   "buttons", "gauges", "plot", "dots",
        "pictures",   "turned pictures", "labels", "overlays"};
    return names[static_cast<size_t>(section)];
}

} // namespace bench
