// The grid of a canvas, drawn over everything else.
#include "CEditorState.h"
#include "CScreenScene.h"

#include <QGraphicsView>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

namespace {
constexpr double LeastDistance = 10.0; ///< screen pixels between two lines
constexpr double PixelGridScale = 10;  ///< from here on every scene unit has its line
constexpr int FirstAlpha = 50;
constexpr int SecondAlpha = 100;
constexpr int FaintPercent = 40; ///< of these

/// The lines of both directions, in the two sets in which they are drawn.
struct GridLines
{
    QVarLengthArray<QLineF, 100> first;
    QVarLengthArray<QLineF, 400> second;

    void add(const QLineF &line, bool isSecond)
    {
        if (isSecond)
            second.append(line);
        else
            first.append(line);
    }
};

int stepFor(double scale, int spacing)
{
    const double pitch = spacing * scale;
    int factor = 1;
    if (pitch > 0)
        factor = static_cast<int>(std::min(LeastDistance / pitch, 1e6));
    const int step = scale >= PixelGridScale ? 1 : spacing;
    return factor > 1 ? step * factor : step;
}

int firstLine(double edge, int step)
{
    const int whole = static_cast<int>(edge);
    return whole - whole % step;
}

void collect(GridLines &lines, const QRectF &rect, int step, bool isPixelGrid)
{
    int index = 0;
    for (int x = firstLine(rect.left(), step); x < rect.right(); x += step, ++index)
        lines.add({double(x), rect.top(), double(x), rect.bottom()},
                  isPixelGrid && index % step != 0);
    index = 0;
    for (int y = firstLine(rect.top(), step); y < rect.bottom(); y += step, ++index)
        lines.add({rect.left(), double(y), rect.right(), double(y)},
                  isPixelGrid && index % step != 0);
}
} // namespace

void CScreenScene::setGrid(bool on, int spacing, QColor colour, Qt::PenStyle style)
{
    CEditorState::instance()->setGrid(on, spacing, colour, style);
}

void CScreenScene::drawBackground(QPainter *painter, const QRectF &rect)
{
    QGraphicsScene::drawBackground(painter, rect);
}

void CScreenScene::drawForeground(QPainter *painter, const QRectF &rect)
{
    const CEditorState *state = CEditorState::instance();
    if (!state->isGridShown() || views().isEmpty())
        return;
    const double scale = std::max(0.0, views().constFirst()->viewportTransform().m11());
    GridLines lines;
    collect(lines, rect, stepFor(scale, state->gridSpacing()), scale >= PixelGridScale);

    painter->setClipRect(sceneRect(), Qt::IntersectClip);
    QColor colour = state->gridColour();
    const int strength = state->isGridFaint() ? FaintPercent : 100;
    colour.setAlpha(FirstAlpha * strength / 100);
    painter->setPen(QPen(colour, 0, state->gridStyle(), Qt::FlatCap, Qt::MiterJoin));
    painter->drawLines(lines.first.constData(), lines.first.size());
    colour.setAlpha(SecondAlpha * strength / 100);
    painter->setPen(QPen(colour, 0, state->gridStyle(), Qt::FlatCap, Qt::MiterJoin));
    painter->drawLines(lines.second.constData(), lines.second.size());
}
