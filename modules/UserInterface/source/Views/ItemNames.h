#pragma once

#include <QSet>
#include <QString>

class CItemModel;
class CProjectModel;
class QUndoStack;

/// Names count up where they would stand twice: "Button", "Button 2", "Button 3", … Those of a
/// screen's items are told apart on that screen, those of screens in the project, whose exports
/// know them by nothing else.
namespace ItemNames {
using Names = QSet<QString>;

Names below(const CItemModel &parent); ///< of all items below, members of groups too
Names ofScreens(const CProjectModel &project, const CItemModel *except = nullptr);
/// The name, or the next number of it that is not taken. What has no name gets none.
QString unused(const QString &name, const Names &taken);
/// What an item is called when a user renames it so: of a screen, a name that no other one has.
QString wanted(const CItemModel &item, const QString &name);
/// Gives an item of the project and its members names that are not taken, recorded one by one, and
/// adds these to the taken ones.
void makeUnique(CItemModel &item, Names &taken, QUndoStack &stack);
} // namespace ItemNames
