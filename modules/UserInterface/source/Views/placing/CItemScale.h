#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QStringList>
#include <QVector>

class CItemModel;

/// Several items that are scaled together, as a drag of their common frame does. Every answer is
/// worked out from how the items were at first, so rounding cannot add up over a long drag.
/// Positions and sizes are whole pixels; edges that meet still do. What is round stays round, a
/// turned item keeps its angle, members go with their group, and what is locked stays.
class CItemScale
{
public:
    /// Of items of one page, as they are now. They must outlive it.
    explicit CItemScale(const QVector<CItemModel *> &items);

    /// What is free to be scaled, groups before their members.
    QVector<CItemModel *> items() const;
    const QRectF &frame() const { return m_frame; } ///< at first
    /// Brings the items to where they lie when their frame is this one.
    void apply(const QRectF &frame) const;

    /// What those items take up on their page that are not locked; null for none.
    static QRectF frameOf(const QVector<CItemModel *> &items);
    /// The properties that may be changed.
    static const QStringList &keys();

private:
    struct SMap;
    struct SStart
    {
        CItemModel *item; ///< not owned
        QPointF position;
        QSizeF size;
        QRectF frame;
        QPolygonF points; ///< on the page
    };
    void add(CItemModel *item);
    static void applyTo(const SStart &start, const SMap &map);
    static void applyToBox(const SStart &start, const SMap &map);

    QVector<SStart> m_starts;
    QRectF m_frame;
};
