#pragma once

#include "SSnapped.h"
#include "ScreenGuides.h"
#include "SnapKinds.h"

#include <QPointF>
#include <QTransform>

/// Where guides lie in a view, whose transformation leads from the screen to its pixels.
namespace GuideRule {
/// The pixel of the view, across the guide.
double pixelOf(const SScreenGuide &guide, const QTransform &toView);
/// The position that a guide has when it is dragged to a place of the view.
int positionAt(Qt::Orientation guide, const QPointF &place, const QTransform &toView);
/// The edge or middle of an item or the page that is nearest, within the tolerance (scene units);
/// otherwise the position itself.
int snapped(Qt::Orientation guide, int position, const SSnapReferences &references, SnapKinds kinds,
            double tolerance);
/// The coordinate of a place that counts for a guide.
double across(Qt::Orientation guide, const QPointF &place);

struct SHit
{
    int index = -1;      ///< negative: none
    double distance = 0; ///< pixels of the view
};
/// The guide that is nearest to a place of the view, at most `reach` pixels away; of equally near
/// ones the one that was made last.
SHit at(const ScreenGuideList &guides, const QPointF &place, const QTransform &toView, double reach,
        bool isWithLocked);
} // namespace GuideRule
