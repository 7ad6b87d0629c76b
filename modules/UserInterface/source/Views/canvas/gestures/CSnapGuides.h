#pragma once

#include "CItemView.h"

#include <QPointer>
#include <QVector>

class CItemModel;
class CSnapCross;
class QGraphicsScene;
class QPointF;

/// Where something that moves on a canvas snaps to, and the lines and the cross that show it.
class CSnapGuides
{
public:
    /// The scene, which owns what is shown, must outlive it.
    explicit CSnapGuides(QGraphicsScene &scene);

    /// Where something at `proposed` lands, given the views of the scene: on edges and centres of
    /// those that neither are selected nor belong to what is moving, or on a grid of this spacing.
    /// Shows it until hide().
    QPointF place(const QPointF &proposed, const QVector<CItemView *> &views,
                  const QVector<CItemModel *> &moving, int spacing);
    void hide();
    QGraphicsItem *cross() const; ///< the scene's, beside the views of items

private:
    QGraphicsScene &m_scene;
    CSnapCross *m_cross;                   ///< the scene's
    QVector<QPointer<CItemView>> m_guided; ///< views that show guide lines
};
