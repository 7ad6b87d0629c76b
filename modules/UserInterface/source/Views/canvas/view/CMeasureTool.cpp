#include "CMeasureTool.h"

#include "CItemArrange.h"
#include "CItemModel.h"
#include "CItemView.h"
#include "CScreenScene.h"

#include <QGraphicsView>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
const QColor Line(255, 87, 34);
const QColor Text(Qt::white);
const QColor Label(190, 54, 12); // with the text at least 4.5 : 1
constexpr int LabelPixelSize = 11;
constexpr int LabelMargin = 4; // pixels
constexpr double Tick = 3;
constexpr double HalfPixel = 0.5; // where a pen is crisp

QPointF crisp(const QPointF &point)
{
    return {std::floor(point.x()) + HalfPixel, std::floor(point.y()) + HalfPixel};
}

QLineF crisp(const QLineF &line)
{
    return {crisp(line.p1()), crisp(line.p2())};
}

/// The part of a line along an axis that is in sight, or near it.
QPointF middleInSight(const QLineF &line, const QRectF &sight)
{
    const auto within = [&](const QPointF &point) {
        return QPointF(std::clamp(point.x(), sight.left(), sight.right()),
                       std::clamp(point.y(), sight.top(), sight.bottom()));
    };
    return (within(line.p1()) + within(line.p2())) / 2;
}

void drawLine(QPainter &painter, const QLineF &line)
{
    const bool isAcross = line.y1() == line.y2();
    const QPointF tick = isAcross ? QPointF(0, Tick) : QPointF(Tick, 0);
    painter.drawLine(line);
    painter.drawLine(line.p1() - tick, line.p1() + tick);
    painter.drawLine(line.p2() - tick, line.p2() + tick);
}

void drawLabel(QPainter &painter, const QLineF &line, int length, const QRectF &sight)
{
    const QString text = QString::number(length);
    QRectF box = painter.fontMetrics().boundingRect(text);
    box.adjust(-LabelMargin, -1, LabelMargin, 1);
    box.moveCenter(middleInSight(line, sight));
    // Short lines stay visible beside their numbers.
    if (line.y1() == line.y2())
        box.moveBottom(line.y1() - Tick - 1);
    else
        box.moveLeft(line.x1() + Tick + 1);
    box.moveLeft(std::clamp(box.left(), sight.left(), sight.right() - box.width()));
    box.moveTop(std::clamp(box.top(), sight.top(), sight.bottom() - box.height()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Label);
    painter.drawRoundedRect(box, 3, 3);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Text);
    painter.drawText(box, Qt::AlignCenter, text);
}
} // namespace

bool CMeasureTool::isPossible() const
{
    return m_scene.screen() && !m_scene.selectedItems().isEmpty();
}

QRectF CMeasureTool::targetAt(const QPoint &place) const
{
    const QList<CItemView *> views =
        m_scene.selectableViewsAt(m_view.mapToScene(place), m_view.viewportTransform());
    const auto found = std::find_if(views.begin(), views.end(),
                                    [](const CItemView *each) { return !each->isSelected(); });
    return found != views.end() ? CItemArrange::frameOf(*(*found)->item()) : m_scene.sceneRect();
}

void CMeasureTool::show(const QPoint &place)
{
    if (!isPossible())
        return hide();
    QRectF from;
    for (const CItemModel *each : m_scene.selectedModelItems()) {
        const QRectF frame = CItemArrange::frameOf(*each);
        from = from.isNull() ? frame : from.united(frame);
    }
    const QRectF target = targetAt(place);
    QVector<MeasureRule::SDistance> distances = MeasureRule::distances(from, target);
    if (target != m_target || distances.size() != m_distances.size())
        m_view.viewport()->update();
    m_target = target;
    m_distances = std::move(distances);
}

void CMeasureTool::hide()
{
    if (m_target.isNull())
        return;
    m_target = {};
    m_distances.clear();
    m_view.viewport()->update();
}

void CMeasureTool::paint(QPainter &painter) const
{
    if (m_target.isNull())
        return;
    painter.save();
    painter.resetTransform(); // from here on in pixels of the view
    const QTransform toView = m_view.viewportTransform();
    const QRectF sight = m_view.viewport()->rect();
    QFont font = m_view.font();
    font.setPixelSize(LabelPixelSize);
    painter.setFont(font);
    const QPen thin(Line, 1);
    const QPen dashed(Line, 1, Qt::DashLine);
    painter.setPen(dashed);
    painter.setBrush(Qt::NoBrush);
    const QRectF target = toView.mapRect(m_target);
    painter.drawRect(QRectF(crisp(target.topLeft()), crisp(target.bottomRight())));
    for (const MeasureRule::SDistance &each : m_distances) {
        const QLineF line = crisp(toView.map(each.line));
        painter.setPen(dashed);
        if (!each.lead.isNull())
            painter.drawLine(crisp(toView.map(each.lead)));
        painter.setPen(thin);
        drawLine(painter, line);
    }
    for (const MeasureRule::SDistance &each : m_distances) // above all lines
        drawLabel(painter, crisp(toView.map(each.line)), each.length, sight);
    painter.restore();
}
