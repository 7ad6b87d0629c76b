#pragma once

#include <QPointF>
#include <QVector>

class CItemModel;

/// One drag of some items: turns a distance into positions, and nothing else. Every answer is
/// worked out from the start, and positions in the model are whole numbers.
class CMoveGesture
{
public:
    explicit CMoveGesture(const QVector<CItemModel *> &items);

    QVector<CItemModel *> items() const;
    /// Sets the items to their start plus `delta`; items between two points keep their size.
    void moveBy(const QPointF &delta) const;

private:
    struct Start
    {
        CItemModel *item; ///< not owned
        QPointF position;
        QPointF second; ///< of items between two points
    };
    QVector<Start> m_starts;
};
