#pragma once

#include "SSnapped.h"

#include <QGraphicsItem>

/// Shows on a canvas what something that is dragged is in line with: lines, distances as numbers,
/// equal gaps as bars. One size at every zoom, to be read on every picture.
class CSnapMarks final : public QGraphicsItem
{
public:
    CSnapMarks();

    void show(const SSnapped &snapped);
    const SSnapped &shown() const { return m_shown; } ///< nothing while hidden
    void clear();

    QRectF boundingRect() const override;
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    SSnapped m_shown;
};
