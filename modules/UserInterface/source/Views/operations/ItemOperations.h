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

/// What a user does to the selected items, recorded on their project's undo stack: one step each.
/// The items are direct rows of a screen, front first. An operation that changes nothing records
/// nothing.
namespace ItemOperations {
using Items = QVector<CItemModel *>;

/// Items of any screens, and screens, in the order of their pages and of the rows there.
Items inOrder(const Items &items);

enum class EOrder { ToFront, ToBack, Forward, Backward };
/// Items of any screens and groups, in any order; each stays in its own. Screens among them are
/// left alone.
void order(const Items &items, EOrder where);

/// Unlocks items of any screens when all are locked, and locks them otherwise.
void toggleLock(const Items &items);

/// Shows items of any screens when all are hidden, and hides them otherwise.
void toggleHidden(const Items &items);
/// Hides items and members of groups from the canvas, or shows them there again.
void setHidden(const Items &items, bool isHidden);

/// The new group, which stands at `position`; null for fewer than two items, and for members.
CItemModel *group(CScreenModel &screen, const Items &items, const QPoint &position);
/// What were members of the groups among the items; nothing for groups that are members.
Items ungroup(CScreenModel &screen, const Items &items);
/// Items of any screens, and screens.
void remove(const Items &items, const QString &macroText);

/// Makes items of any screen of the project the foremost ones of this screen; those that are its
/// own stay where they are. What they are on this screen, in the order of `items`. To be called
/// within a macro.
Items moveToScreen(CScreenModel &screen, const Items &items);

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
} // namespace ItemOperations
