#pragma once

#include <QPoint>
#include <QString>
#include <QVector>

#include <memory>
#include <optional>

class CItemModel;
class QMimeData;
class QUndoCommand;

/// Copies of items: on the clipboard, and from there or at once into a screen or a group. What
/// changes the project is recorded on its undo stack, one step each; what changes nothing records
/// nothing. The items are rows of one screen or group, front first.
namespace ItemClipboard {
using Items = QVector<CItemModel *>;

/// The items as clipboard data, owned by the caller; null for no items.
QMimeData *toMimeData(const Items &items);
bool canPaste(const QMimeData *data);
/// Copies items of any screens to the clipboard, and takes them away. Nothing is taken away that
/// could not be pasted.
void cut(const Items &items);
/// The pasted items. They get unused ids, and names that no other item of the screen has; images
/// of another project come along. `problem` says why nothing was pasted, or which images are
/// missing. They come as far from where they were copied as `by` says, with a null one from a
/// larger page onto this one; without it, to a place where they are seen.
Items paste(CItemModel &into, const QMimeData &data, QString *problem = nullptr,
            std::optional<QPoint> by = {});
/// Pasted items in the place of each of these that may go: at the corner of its frame and in its
/// row. What was pasted.
Items replace(const Items &items, const QMimeData &data, QString *problem = nullptr);
/// The copies, at a distance as with paste().
Items duplicate(CItemModel &into, const Items &items, std::optional<QPoint> by);
/// The step that would do so, for who must first see where they go; null for no items.
std::unique_ptr<QUndoCommand> duplication(CItemModel &into, const Items &items,
                                          std::optional<QPoint> by, Items *copies);
} // namespace ItemClipboard
