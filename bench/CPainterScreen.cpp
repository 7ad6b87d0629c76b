#include "CPainterScreen.h"

#include "RomFonts.h"
#include "ScreenList.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTextLayout>

namespace bench {

namespace {

QColor colour(uint32_t argb)
{
    return QColor::fromRgba(argb);
}

QPolygonF polygon(const std::vector<SPointF> &points)
{
    QPolygonF result;
    for (const SPointF &point : points)
        result << QPointF(point.x, point.y);
    return result;
}

QFont font(const QString &fontFile, int pixels)
{
    const int id = QFontDatabase::addApplicationFont(fontFile);
    QFont result(QFontDatabase::applicationFontFamilies(id).value(0));
    result.setPixelSize(pixels);
    result.setStyleStrategy(
        QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    result.setHintingPreference(QFont::PreferNoHinting);
    result.setKerning(false);
    return result;
}

QList<QGlyphRun> glyphRuns(const QString &text, const QFont &font)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(1e6);
    line.setPosition({0, -line.ascent()});
    layout.endLayout();
    return layout.glyphRuns();
}

} // namespace

CPainterScreen::CPainterScreen(const SStandardScreen &screen, const QString &fontFile)
    : m_screen(screen),
      m_image(screen.width, screen.height, QImage::Format_ARGB32_Premultiplied),
      m_plot(polygon(screen.plot))
{
    m_image.fill(Qt::black);
    for (const SPicture &picture : screen.pictures) {
        const auto *pixels = reinterpret_cast<const uchar *>(picture.pixels.data());
        m_pictures.push_back(
            QImage(pixels, picture.width, picture.height, QImage::Format_ARGB32_Premultiplied)
                .copy());
    }
    for (const SFilledPolygon &one : screen.polygons)
        m_polygons.push_back(polygon(one.points));
    std::map<int, QFont> fonts;
    for (const SLabel &label : screen.labels) {
        const int pixels = romfonts::emSize(romFont(label.emSize));
        if (fonts.count(pixels) == 0)
            fonts[pixels] = font(fontFile, pixels);
        m_runs.push_back(glyphRuns(QString::fromStdString(label.text), fonts[pixels]));
    }
}

void CPainterScreen::draw(std::optional<ESection> section)
{
    QPainter painter(&m_image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    for (int i = 0; i < SectionCount; ++i) {
        const auto one = static_cast<ESection>(i);
        if (!section || *section == one)
            drawSection(painter, one);
    }
}

void CPainterScreen::drawSection(QPainter &painter, ESection section)
{
    switch (section) {
    case ESection::Background:
        return background(painter);
    case ESection::Polygons:
        painter.setPen(Qt::NoPen);
        for (size_t i = 0; i < m_polygons.size(); ++i) {
            painter.setBrush(colour(m_screen.polygons[i].colour));
            painter.drawPolygon(m_polygons[i], Qt::OddEvenFill);
        }
        return;
    case ESection::Bars:
        return boxes(painter, m_screen.bars);
    case ESection::Buttons:
        return boxes(painter, m_screen.buttons);
    case ESection::Gauges:
        return gauges(painter);
    case ESection::Plot:
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colour(m_screen.plotColour), m_screen.plotWidth, Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(m_plot);
        return;
    case ESection::Dots:
        painter.setPen(Qt::NoPen);
        for (const SDot &dot : m_screen.dots) {
            painter.setBrush(colour(dot.colour));
            painter.drawEllipse(QPointF(dot.x, dot.y), dot.radius, dot.radius);
        }
        return;
    case ESection::Pictures:
        for (const SPlacedPicture &one : m_screen.placed)
            painter.drawImage(QPointF(one.x, one.y), m_pictures[one.picture]);
        return;
    case ESection::TurnedPictures:
        return turnedPictures(painter);
    case ESection::Labels:
        return labels(painter);
    case ESection::Overlays:
        for (const SOverlay &one : m_screen.overlays)
            painter.fillRect(one.x, one.y, one.width, one.height, colour(one.colour));
        return;
    }
}

void CPainterScreen::background(QPainter &painter)
{
    painter.fillRect(m_image.rect(), colour(m_screen.background));
    for (const SVerticalGradient &one : m_screen.gradients) {
        QLinearGradient gradient(0, one.y, 0, one.y + one.height);
        gradient.setColorAt(0, colour(one.top));
        gradient.setColorAt(1, colour(one.bottom));
        painter.fillRect(QRectF(one.x, one.y, one.width, one.height), gradient);
    }
}

void CPainterScreen::boxes(QPainter &painter, const std::vector<SRoundedBox> &boxes)
{
    for (const SRoundedBox &one : boxes) {
        painter.setBrush(colour(one.fill));
        painter.setPen(one.borderWidth > 0 ? QPen(colour(one.border), one.borderWidth)
                                           : QPen(Qt::NoPen));
        painter.drawRoundedRect(QRectF(one.x, one.y, one.width, one.height), one.radius,
                                one.radius);
    }
}

void CPainterScreen::gauges(QPainter &painter)
{
    for (const SLinePiece &one : m_screen.gauges) {
        painter.setPen(QPen(colour(one.colour), one.width, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(one.from.x, one.from.y), QPointF(one.to.x, one.to.y));
    }
}

void CPainterScreen::turnedPictures(QPainter &painter)
{
    for (const STurnedPicture &one : m_screen.turned) {
        const QImage &picture = m_pictures[one.picture];
        painter.save();
        painter.translate(one.centre.x, one.centre.y);
        painter.rotate(one.angle);
        painter.scale(one.scale, one.scale);
        painter.drawImage(QPointF(-picture.width() / 2.0, -picture.height() / 2.0), picture);
        painter.restore();
    }
}

void CPainterScreen::labels(QPainter &painter)
{
    for (size_t i = 0; i < m_runs.size(); ++i) {
        const SLabel &label = m_screen.labels[i];
        painter.setPen(colour(label.colour));
        for (const QGlyphRun &run : m_runs[i])
            painter.drawGlyphRun(QPointF(label.x, label.baseline), run);
    }
}

} // namespace bench
