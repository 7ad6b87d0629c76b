#pragma once

#include "ScreenGuides.h"

class QPainter;
class QSizeF;

/// How guides look on the canvas and in menus.
namespace GuideLook {
enum class EState { Quiet, Hot }; ///< hot: under the pointer, held or chosen

/// What a guide without a colour of its own is drawn in.
QColor colourOf(const SScreenGuide &guide);
/// Across a view of this size, `pixel` from its corner. In pixels of the view.
void paint(QPainter &painter, const SScreenGuide &guide, EState state, double pixel,
           const QSizeF &view);
} // namespace GuideLook
