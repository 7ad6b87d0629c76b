#pragma once

#include <QColor>
#include <QString>
#include <QVector>

/// A line that a user has laid across a screen to place items by. It is no part of the picture.
struct SScreenGuide
{
    static constexpr int Farthest = 16384; ///< from the screen's corner, either way
    static constexpr int MostOfScreen = 200;

    Qt::Orientation orientation = Qt::Vertical; ///< of the line: a vertical one stands at an x
    int position = 0;                           ///< whole pixels from the screen's corner
    QColor color = {};                          ///< opaque; not valid: the usual one
    bool isLocked = false;                      ///< not to be taken hold of on the canvas

    bool operator==(const SScreenGuide &other) const;
    bool operator!=(const SScreenGuide &other) const { return !(*this == other); }
};

/// The guides of a screen, in the order in which they were made.
using ScreenGuideList = QVector<SScreenGuide>;

namespace ScreenGuides {
/// What a screen can have: positions within reach, opaque colours, and no more than may be.
ScreenGuideList bounded(ScreenGuideList guides);

/// As the value of the attribute that documents have: "x120 y40,#ff8800 x300,locked".
QString text(const ScreenGuideList &guides);
/// What can be made out of such a text; the rest is passed over.
ScreenGuideList fromText(const QString &text);
} // namespace ScreenGuides
