#pragma once

#include "CItemView.h"

#include <QVector>

class CPointHandle;

/// A widget that is drawn through a list of points. Shift + press on the selected widget adds a
/// point at the nearest segment.
class CMultiPointItemView final : public CItemView
{
    Q_OBJECT

public:
    CMultiPointItemView(CItemModel *item, const ICanvas &canvas);

    void onPropertyChanged(const QString &key) override;
    QVector<QPointF> points() const override;
    void addPoint(const QPointF &position); ///< in the view's coordinates
    /// Leaves a list with the fewest points that the kind can have as it is.
    void removePoint(int index);

protected:
    QVector<QPainterPath> hitParts() const override;
    void makeHandles() override;
    void updateHandles() override;
    void showHandles(bool visible) override;

    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void updatePoints();
    void record(const QString &macroText, const QString &points);

    QVector<CPointHandle *> m_points; ///< children
    bool m_pointAdded = false;        ///< by the press that is not released yet
};
