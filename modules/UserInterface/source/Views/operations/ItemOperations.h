#pragma once

#include <QPoint>
#include <QString>
#include <QVector>

class CItemModel;
class CScreenModel;

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
bool canOrder(const Items &items, EOrder where); ///< whether any of them is not there yet

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
/// Whether nothing of it is locked, nor what it is in.
bool mayGo(const CItemModel &item);
/// Takes away items of any screens, and screens; a lock is about place and properties, and does not
/// keep them. A group that loses its last member goes as well.
void remove(const Items &items, const QString &macroText);

/// Makes items of any screen of the project the foremost ones of this screen; those that are its
/// own stay where they are. What they are on this screen, in the order of `items`. To be called
/// within a macro.
Items moveToScreen(CScreenModel &screen, const Items &items);
} // namespace ItemOperations
