#pragma once

#include <QPoint>
#include <QString>
#include <QVector>

#include <memory>
#include <optional>

class CItemModel;
class CScreenModel;
class QMimeData;
class QUndoCommand;

/// Copies of items: on the clipboard, and from there or at once onto a screen. What changes the
/// project is recorded on its undo stack, one step each; what changes nothing records nothing.
/// The items are direct rows of a screen, front first.
namespace ItemClipboard {
using Items = QVector<CItemModel *>;

/// The items as clipboard data, owned by the caller; null for no items.
QMimeData *toMimeData(const Items &items);
bool canPaste(const QMimeData *data);
/// The pasted items. They get unused ids, and names that no other item of the screen has; images
/// of another project come along. `problem` says why nothing was pasted, or which images are
/// missing. They come as far from where they were copied as `by` says, with a null one from a
/// larger page onto this one; without it, to a place where they are seen.
Items paste(CScreenModel &screen, const QMimeData &data, QString *problem = nullptr,
            std::optional<QPoint> by = {});
/// Pasted items in the place of each of these that is not locked: at the corner of its frame and in
/// its row. What was pasted.
Items replace(CScreenModel &screen, const Items &items, const QMimeData &data,
              QString *problem = nullptr);
/// The copies, at a distance as with paste().
Items duplicate(CScreenModel &screen, const Items &items, std::optional<QPoint> by);
/// The step that would do so, for who must first see where they go; null for no items.
std::unique_ptr<QUndoCommand> duplication(CScreenModel &screen, const Items &items,
                                          std::optional<QPoint> by, Items *copies);
} // namespace ItemClipboard
