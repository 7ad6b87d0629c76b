#pragma once

#include "MeasureRule.h"

#include <QRectF>
#include <QVector>

class CScreenScene;
class QGraphicsView;
class QPainter;

/// While Alt is held and nothing is pressed: how far the selection lies from what is under the
/// pointer, an item or else the page.
class CMeasureTool
{
public:
    /// Both must outlive it.
    CMeasureTool(const CScreenScene &scene, QGraphicsView &view) : m_scene(scene), m_view(view) {}

    bool isPossible() const; ///< there is something to measure from
    void show(const QPoint &place);
    void hide();

    const QVector<MeasureRule::SDistance> &distances() const { return m_distances; }
    void paint(QPainter &painter) const;

private:
    QRectF targetAt(const QPoint &place) const;

    const CScreenScene &m_scene;
    QGraphicsView &m_view;
    QRectF m_target; ///< null while nothing is shown
    QVector<MeasureRule::SDistance> m_distances;
};
