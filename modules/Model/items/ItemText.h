#pragma once

#include <QSizeF>
#include <QString>

class CItemModel;

/// The text that a text or a number shows: the kinds that are as large as it when nothing else
/// gives them a size.
namespace ItemText {
/// The property that holds it; empty for all other kinds.
QString keyOf(const CItemModel &item);
/// Pixels that it covers in the item's font, on one line; invalid for all other kinds and for fonts
/// that are not known.
QSizeF sizeOf(const CItemModel &item);
} // namespace ItemText
