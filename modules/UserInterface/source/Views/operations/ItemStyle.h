#pragma once

#include "CWidgetProperty.h"

#include <QHash>
#include <QVector>

class CItemModel;

/// How items look, apart from what they are: their colours, fonts, line widths and options of their
/// look, but not their place, size, texts, values, states and images.
namespace ItemStyle {
using Items = QVector<CItemModel *>;
using Style = QHash<QString, CWidgetProperty>;

bool isPartOf(const CWidgetProperty &property);
/// Of the items and, of groups, their members; where several have a property, of the first one.
Style of(const Items &items);
/// Gives the items, and the members of groups, what they have of the style themselves, as one step.
/// What is locked stays as it is. A number keeps to the limits of where it comes; an option that
/// the other does not know is left out. False when nothing changes.
bool apply(const Style &style, const Items &items);
} // namespace ItemStyle
