#pragma once

#include <QHash>
#include <QRectF>
#include <QVector>

/// Rectangles by where they lie: whether any of many meets another one takes a look at those about.
class CRectIndex
{
public:
    void add(const QRectF &rect);
    /// As QRectF::intersects() says of any of them.
    bool intersects(const QRectF &rect) const;

private:
    QHash<QPair<int, int>, QVector<QRectF>> m_cells;
    QVector<QRectF> m_large; ///< that would lie in very many cells
};
