#pragma once

#include "CTransform.h"
#include "displaylist/CDisplayListWriter.h"

#include <string_view>
#include <utility>
#include <vector>

namespace kivemu {

class CTextFont;
class CTexts;
class IWorkMeter;
struct SLoadedBitmap;
struct SShapedLine;

/// How a bitmap is drawn, in the frame's pixels.
struct SBitmapDrawing
{
    double x;
    double y;
    double width; ///< scaled to
    double height;
    double angle; ///< about its centre
    EBitmapFilter filter;
    EBitmapWrap wrap;
};

/// Turns the drawing API's calls into display-list commands: keeps the drawing state, rotates,
/// rounds to sixteenths of a pixel. State goes to the list only when something is drawn with it, so
/// items that change nothing cost nothing, and none can leak its state into the next.
/// Lengths are pixels and finite; shapes without an extent draw nothing.
class CDrawContext
{
public:
    static constexpr size_t MaxSaved = 64;
    static constexpr size_t MaxPoints = 8192;

    CDrawContext(CDisplayListWriter &writer, int width, int height);

    void setColour(Argb colour) { state().colour = colour; }
    void setBlend(bool on) { state().blend = on; }
    void setLineWidth(double width) { state().lineWidth = width; }
    /// Limits to whole pixels, within the rectangle that held at the last save.
    void setScissor(double x, double y, double width, double height);
    void liftScissor() { state().scissor = state().limit; }
    void rotate(double degrees, double x, double y);
    bool save();    ///< false at MaxSaved
    bool restore(); ///< false when nothing was saved since the item's begin

    /// Between the two, commands carry the item's tag and start from the state outside; afterwards
    /// that state holds again, whatever the item left behind.
    void beginItem(uint32_t tag);
    void endItem();

    /// How far the list and what is known of it have come; outside of items' begin and end.
    struct SMark
    {
        CDisplayListWriter::SMark list;
        SClip scissor{};
        uint32_t tag = 0;
    };
    SMark mark() const { return {m_writer.mark(), m_emittedScissor, m_emittedTag}; }
    /// Takes back whatever was drawn since.
    void takeBack(const SMark &mark);
    /// About the nanoseconds that shapes took beside their commands since it was last asked.
    uint64_t takeWork() { return std::exchange(m_work, 0); }

    void clear(Argb colour);
    void disc(double x, double y, double radius);
    void line(double x0, double y0, double x1, double y1);
    void fillRect(double x, double y, double width, double height, double radius);
    void strokeRect(double x, double y, double width, double height, double radius);
    void arc(double x, double y, double radius, double start, double sweep, EArcCaps caps);
    void gradient(double x, double y, double width, double height, Argb from, Argb to,
                  double direction, double radius);
    /// The pen's position is the baseline; the text keeps upright in a rotation.
    void text(double x, double y, int font, std::string_view latin1);
    /// A line in a font of the project's own, which turns with the rotation. When the meter says
    /// that it is enough, the rest is left out.
    void glyphs(double x, double y, CTexts &texts, CTextFont &font, const SShapedLine &line,
                IWorkMeter &meter);
    void bitmap(const SLoadedBitmap &bitmap, const SBitmapDrawing &drawing);

    /// Points are gathered one by one, then drawn. False at MaxPoints.
    void beginPoints() { m_points.clear(); }
    bool addPoint(double x, double y);
    void polyline(bool closed);
    void polygon();

    /// The mark of an item that cannot be drawn: a translucent box with diagonal lines.
    void hatchedBox(double x, double y, double width, double height);

private:
    struct SState
    {
        Argb colour = 0xFFFFFFFF;
        bool blend = true;
        double lineWidth = 1;
        SClip scissor{};
        SClip limit{};
        CTransform transform;
    };
    SState &state() { return m_states.back(); }
    void flush();
    void flushScissor();
    void flushForStroke();
    SPoint point(double x, double y) const;
    void addOutline(double x, double y, double width, double height, double radius);
    void gradientBands(const std::vector<SVector> &outline, SVector centre, double direction,
                       double extent, Argb from, Argb to);

    CDisplayListWriter &m_writer;
    std::vector<SState> m_states;
    std::vector<size_t> m_itemBase; ///< states below an item's first
    SClip m_emittedScissor;
    uint32_t m_tag = 0;
    uint32_t m_emittedTag = 0;
    std::vector<SPoint> m_points;
    std::vector<CDisplayListWriter::SPlacedGlyph> m_glyphs;
    uint64_t m_work = 0;
};

} // namespace kivemu
