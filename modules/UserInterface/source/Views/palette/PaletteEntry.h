#pragma once

#include <QListWidgetItem>

/// What the rows of the palette carry.
namespace PaletteEntry {
constexpr int TypeRole = Qt::UserRole; ///< of a kind: its type name; headers have none
// As the library has them, untranslated:
constexpr int NameRole = Qt::UserRole + 1;
constexpr int TipRole = Qt::UserRole + 2;
constexpr int GroupRole = Qt::UserRole + 3;
constexpr int PlaceRole = Qt::UserRole + 4; ///< in the order of the library
constexpr int ShelfRole = Qt::UserRole + 5; ///< of what stands on a shelf: which one

bool isHeader(const QListWidgetItem *item);
bool isOnShelf(const QListWidgetItem *item);
/// A text of the library, which the user may have extended: one without a translation stays.
QString translated(const QVariant &text);
} // namespace PaletteEntry
