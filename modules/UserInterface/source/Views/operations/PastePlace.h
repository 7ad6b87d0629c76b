#pragma once

#include <QPoint>
#include <QSize>
#include <QVector>

class CItemModel;

/// Where pasted items go: to where they were copied. From a larger page they are brought onto this
/// one, and where the very same already lies, they step aside until they are seen.
namespace PastePlace {
constexpr int Step = 10; ///< pixels to the right and down; back, where the page ends

/// By how much. The items stand where they were copied, on a page of the size `from`; an empty one
/// is unknown, and they must be on this page. `into`: the screen or group whose rows they become.
QPoint offset(const QVector<CItemModel *> &items, const CItemModel &into, const QSize &from);
/// The part of it that brings them from a larger page onto one of this size.
QPoint ontoPage(const QVector<CItemModel *> &items, const QSize &size, const QSize &from);
/// Moves an item that is in no project yet, with all its members.
void move(CItemModel &item, const QPoint &by);
} // namespace PastePlace
