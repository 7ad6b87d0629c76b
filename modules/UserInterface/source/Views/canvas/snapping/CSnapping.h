#pragma once

#include "CSnapRule.h"

#include <QVector>

#include <memory>

class CItemModel;
class CScreenModel;
class CSnapMarks;
class QGraphicsItem;
class QGraphicsScene;

/// Snapping while something is dragged over a canvas: the rule with all that lies on the screen,
/// the kinds that the user has switched on, a reach that is the same at every zoom, and the marks
/// that show it. From begin() to end(), between which only what moves may change.
class CSnapping
{
public:
    /// The scene, which owns what is shown, must outlive it, and the screen must outlive its use.
    CSnapping(QGraphicsScene &scene, const CScreenModel &screen);

    /// `own`: places beside those of all other items, such as further points of what moves.
    void begin(const QVector<CItemModel *> &moving, const QVector<QRectF> &own = {});
    bool isBegun() const { return m_rule != nullptr; }
    /// The offset to be taken for one that the pointer has gone. Held Control suspends it.
    QPointF snapped(const CSnapRule::OutlineAt &outlineAt, const QPointF &offset,
                    Qt::KeyboardModifiers modifiers);
    void end();

    CSnapMarks *marks() const { return m_marks; } ///< the scene's, beside the views of items

private:
    double zoom() const;

    QGraphicsScene &m_scene;
    const CScreenModel &m_screen;
    CSnapMarks *m_marks; ///< the scene's
    std::unique_ptr<CSnapRule> m_rule;
};
