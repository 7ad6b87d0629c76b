#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One screen as a control panel would show it, as plain data: every renderer that is measured
/// draws exactly these lists, section by section, and so does the same work.
/// Units: pixels, y downwards; colours 0xAARRGGBB, not multiplied by alpha.
namespace bench {

struct SPointF
{
    double x;
    double y;
};

/// Runs from the first colour at the top to the second at the bottom; opaque.
struct SVerticalGradient
{
    double x, y, width, height;
    uint32_t top, bottom;
};

struct SFilledPolygon
{
    std::vector<SPointF> points;
    uint32_t colour;
};

struct SRoundedBox
{
    double x, y, width, height, radius;
    uint32_t fill;
    uint32_t border;
    double borderWidth; ///< 0: no border
};

/// Round ends.
struct SLinePiece
{
    SPointF from, to;
    double width;
    uint32_t colour;
};

struct SDot
{
    double x, y, radius;
    uint32_t colour;
};

/// Premultiplied 0xAARRGGBB, rows without padding.
struct SPicture
{
    int width, height;
    std::vector<uint32_t> pixels;
};

/// A picture at its own size, at whole pixels.
struct SPlacedPicture
{
    size_t picture;
    int x, y;
};

/// A picture scaled and turned (degrees, clockwise) about its centre, filtered bilinearly.
struct STurnedPicture
{
    size_t picture;
    SPointF centre;
    double scale;
    double angle;
};

struct SLabel
{
    int x, baseline;
    int emSize; ///< 16, 20, 24 or 28 pixels
    uint32_t colour;
    std::string text;
};

/// Whole pixels, translucent.
struct SOverlay
{
    int x, y, width, height;
    uint32_t colour;
};

struct SStandardScreen
{
    int width, height;
    uint32_t background;
    std::vector<SVerticalGradient> gradients;
    std::vector<SFilledPolygon> polygons;
    std::vector<SRoundedBox> bars;
    std::vector<SRoundedBox> buttons;
    std::vector<SLinePiece> gauges; ///< each drawn by itself
    std::vector<SPointF> plot;      ///< one polyline with round joins and ends
    double plotWidth;
    uint32_t plotColour;
    std::vector<SDot> dots;
    std::vector<SPicture> pictures;
    std::vector<SPlacedPicture> placed;
    std::vector<STurnedPicture> turned;
    std::vector<SLabel> labels;
    std::vector<SOverlay> overlays;
};

/// The screen for a frame of that size; the same for the same size, always.
SStandardScreen standardScreen(int width, int height);

/// The sections in drawing order.
enum class ESection {
    Background,
    Polygons,
    Bars,
    Buttons,
    Gauges,
    Plot,
    Dots,
    Pictures,
    TurnedPictures,
    Labels,
    Overlays,
};
constexpr int SectionCount = 11;
const char *sectionName(ESection section);

} // namespace bench
