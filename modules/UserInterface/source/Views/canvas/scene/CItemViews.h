#pragma once

#include <QHash>
#include <QSet>
#include <QVector>

class CItemModel;
class CItemView;
class CScreenModel;
class ICanvas;
class QGraphicsScene;

/// The views of a screen's items in a scene, which owns them: stacked as the rows are, groups about
/// their members. What follows from many changes at once is worked out once, when it is asked for.
class CItemViews
{
public:
    /// Neither is owned.
    CItemViews(QGraphicsScene &scene, const ICanvas &canvas) : m_scene(scene), m_canvas(canvas) {}

    /// Of an item that was seen last, null for none; its frame is up to date.
    CItemView *of(const CItemModel *item) const;
    /// The same while its frame does not matter.
    CItemView *find(const CItemModel *item) const { return m_views.value(item); }
    bool contains(const CItemModel *item) const { return m_views.contains(item); }
    /// Front first.
    const QVector<CItemView *> &order() const;

    /// With its members. One that only changes its row still has its view.
    void add(CItemModel *item);
    void remove(const CItemModel *item); ///< without its members
    void clear();                        ///< the scene has deleted them
    /// Rows of the screen, or of a group on it, have come or gone.
    void rowsChanged(const CScreenModel *screen);
    /// What the groups around them frame may have changed.
    void membersChanged(const CItemModel *group);

private:
    void restack() const;
    void updateGroupFrames() const;

    QGraphicsScene &m_scene;
    const ICanvas &m_canvas;
    QHash<const CItemModel *, CItemView *> m_views;
    mutable QVector<CItemView *> m_order;         ///< front first
    mutable QSet<const CItemModel *> m_dueGroups; ///< whose members have changed
    mutable const CScreenModel *m_due = nullptr;  ///< whose rows have changed
};
