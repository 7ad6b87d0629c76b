#pragma once

#include <QFlags>

/// What things that are dragged can be in line with.
enum class ESnapKind {
    Items = 1,  ///< edges and middles of other items
    Page = 2,   ///< edges and middle of the page
    Guides = 4, ///< guides of the page
    Gaps = 8,   ///< as far from a neighbour as others are from each other
};
Q_DECLARE_FLAGS(SnapKinds, ESnapKind)
Q_DECLARE_OPERATORS_FOR_FLAGS(SnapKinds)

constexpr ESnapKind EverySnapKind[] = {ESnapKind::Items, ESnapKind::Page, ESnapKind::Guides,
                                       ESnapKind::Gaps};
