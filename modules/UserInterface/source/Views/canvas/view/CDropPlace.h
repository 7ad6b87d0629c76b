#pragma once

#include <QPointF>
#include <QRectF>
#include <QVector>

class CItemModel;
class CScreenScene;

/// Where what is dragged over a canvas from elsewhere lands: on the grid, or in line with others.
class CDropPlace
{
public:
    /// The scene must outlive it.
    explicit CDropPlace(CScreenScene &scene) : m_scene(scene) {}

    /// These items, which are moved there; the first one comes to the place.
    void setItems(const QVector<CItemModel *> &items);
    /// One that is not there yet, and in no tree.
    void setNew(const CItemModel &item);
    /// What has no size that is known.
    void setNothing() { setItems({}); }

    /// The place for one of the pointer, which is shown until the scene hides its guides. Held
    /// Control lets go of others, not of the grid.
    QPointF at(const QPointF &scenePos, Qt::KeyboardModifiers modifiers) const;

private:
    CScreenScene &m_scene;
    QVector<CItemModel *> m_moving;
    QRectF m_frame; ///< of all, where they are now
    QPointF m_position;
};
