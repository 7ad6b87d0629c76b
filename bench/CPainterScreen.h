#pragma once

#include "StandardScreen.h"

#include <QFont>
#include <QGlyphRun>
#include <QImage>
#include <QList>
#include <QPolygonF>

#include <map>
#include <optional>
#include <vector>

class QPainter;

namespace bench {

/// The standard screen drawn by QPainter, everything that can be prepared done once: images,
/// polygons, glyph runs. Labels have the em sizes of the ROM fonts that the chip draws with.
class CPainterScreen
{
public:
    CPainterScreen(const SStandardScreen &screen, const QString &fontFile);

    /// One section, or all.
    void draw(std::optional<ESection> section);
    const QImage &image() const { return m_image; }

private:
    void drawSection(QPainter &painter, ESection section);
    void background(QPainter &painter);
    void boxes(QPainter &painter, const std::vector<SRoundedBox> &boxes);
    void gauges(QPainter &painter);
    void turnedPictures(QPainter &painter);
    void labels(QPainter &painter);

    const SStandardScreen &m_screen;
    QImage m_image;
    std::vector<QImage> m_pictures;
    std::vector<QPolygonF> m_polygons;
    QPolygonF m_plot;
    std::vector<QList<QGlyphRun>> m_runs;
};

} // namespace bench
