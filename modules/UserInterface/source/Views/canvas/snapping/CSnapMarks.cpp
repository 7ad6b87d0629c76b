#include "CSnapMarks.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
const QColor Line(255, 45, 120);
const QColor Bar(255, 45, 120, 90);
const QColor Casing(255, 255, 255, 110); // stands out from a picture of the line's own colour
const QColor Number(Qt::white);
constexpr double Z = 1001;       // over the snap cross
constexpr double Cap = 4;        // screen pixels; half the stroke at the end of a distance
constexpr double Padding = 4;    // beside a number
constexpr double Away = 5;       // a number from its line
constexpr int NumberHeight = 11; // of its font

bool isUpright(const QLineF &line)
{
    return line.x1() == line.x2();
}

/// Draws in screen pixels what is told in scene units.
class CMarkPainter
{
public:
    explicit CMarkPainter(QPainter &painter)
        : m_painter(painter),
          m_toPixels(painter.worldTransform()),
          m_seen(0, 0, painter.device()->width(), painter.device()->height())
    {
        painter.setWorldTransform(QTransform());
        painter.setRenderHint(QPainter::Antialiasing, false);
        QFont font = painter.font();
        font.setPixelSize(NumberHeight);
        font.setBold(true);
        painter.setFont(font);
    }

    void addLine(const QLineF &line) { m_strokes.append(toPixels(line)); }

    void addDistance(const QLineF &line)
    {
        const QLineF mapped = toPixels(line);
        const QPointF cap = isUpright(mapped) ? QPointF(Cap, 0) : QPointF(0, Cap);
        m_strokes.append(mapped);
        m_strokes.append({mapped.p1() - cap, mapped.p1() + cap});
        m_strokes.append({mapped.p2() - cap, mapped.p2() + cap});
    }

    /// All that were added: none covers another with its casing.
    void drawLines()
    {
        for (const QPen &pen : {QPen(Casing, 3, Qt::SolidLine, Qt::FlatCap), QPen(Line, 1)}) {
            m_painter.setPen(pen);
            m_painter.drawLines(m_strokes);
        }
    }

    void drawBand(const QRectF &band) { m_painter.fillRect(m_toPixels.mapRect(band), Bar); }

    /// The length of a line, beside the middle of what is seen of it.
    void drawNumber(const QLineF &line)
    {
        const QLineF mapped = toPixels(line);
        const QRectF along = QRectF(mapped.p1(), mapped.p2()).normalized().adjusted(-1, -1, 1, 1);
        const QRectF seen = along & m_seen;
        if (seen.isEmpty())
            return;
        const QString text = QString::number(std::round(line.length() * 10) / 10);
        QRectF label(QPointF(), QFontMetricsF(m_painter.font()).size(0, text));
        label.adjust(0, 0, 2 * Padding, 2);
        label.moveCenter(seen.center());
        if (isUpright(mapped))
            label.moveLeft(std::min(seen.center().x() + Away, m_seen.right() - label.width()));
        else
            label.moveTop(std::min(seen.center().y() + Away, m_seen.bottom() - label.height()));
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setPen(QPen(Casing, 1));
        m_painter.setBrush(Line);
        m_painter.drawRoundedRect(label, 3, 3);
        m_painter.setPen(Number);
        m_painter.drawText(label, Qt::AlignCenter, text);
        m_painter.setRenderHint(QPainter::Antialiasing, false);
    }

private:
    /// On whole pixels, so that a line is as thick as every other.
    QLineF toPixels(const QLineF &line) const
    {
        const auto whole = [](const QPointF &point) {
            return QPointF(std::round(point.x()), std::round(point.y()));
        };
        const QLineF mapped = m_toPixels.map(line);
        return {whole(mapped.p1()), whole(mapped.p2())};
    }

    QPainter &m_painter;
    const QTransform m_toPixels;
    const QRectF m_seen;
    QVector<QLineF> m_strokes; ///< screen pixels
};

QLineF middleOf(const SSnapGap &gap)
{
    const QPointF middle = gap.band.center();
    return gap.along == Qt::Horizontal
               ? QLineF(gap.band.left(), middle.y(), gap.band.right(), middle.y())
               : QLineF(middle.x(), gap.band.top(), middle.x(), gap.band.bottom());
}
} // namespace

CSnapMarks::CSnapMarks()
{
    setVisible(false);
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(Z);
}

void CSnapMarks::show(const SSnapped &snapped)
{
    m_shown = snapped;
    setVisible(!snapped.lines.isEmpty() || !snapped.gaps.isEmpty());
    update();
}

void CSnapMarks::clear()
{
    m_shown = {};
    setVisible(false);
}

/// Numbers stick out by so many screen pixels that there is no telling it in scene units.
QRectF CSnapMarks::boundingRect() const
{
    constexpr double Far = 1e5;
    return {-Far, -Far, 2 * Far, 2 * Far};
}

void CSnapMarks::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->save();
    CMarkPainter marks(*painter);
    for (const SSnapGap &gap : qAsConst(m_shown.gaps))
        marks.drawBand(gap.band);
    for (const QLineF &line : qAsConst(m_shown.lines))
        marks.addLine(line);
    for (const QLineF &line : qAsConst(m_shown.distances))
        marks.addDistance(line);
    for (const SSnapGap &gap : qAsConst(m_shown.gaps))
        marks.addDistance(middleOf(gap));
    marks.drawLines();
    for (const QLineF &line : qAsConst(m_shown.distances)) // over all lines
        marks.drawNumber(line);
    for (const SSnapGap &gap : qAsConst(m_shown.gaps))
        marks.drawNumber(middleOf(gap));
    painter->restore();
}
