#pragma once

#include "PictureDifference.h"
#include "SProjectChanges.h"
#include "SProjectState.h"

#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// Of the pictures of screens that differ, by the later screen; none when no pictures were made.
using PictureDifferences = QHash<const SItemState *, SPictureDifference>;

/// The forms in which changes are told outside the editor.
namespace ChangesText {

/// {"equal", "project": [{"property", "old", "new"}], "screens": [{"change": "added", "removed" or
/// "changed", "name", "old_name", "reordered", "properties", "items": [{"change": "added",
/// "removed", "moved" or "changed", "type", "id", "name", "group", "box": [x, y, width, height],
/// "from_screen", "regrouped", "reordered", "properties"}], "pixels": {"count", "box"}}]}. What
/// does not apply is left out; a value that was or is not there is null. Screens whose pictures
/// alone differ (an image's file is another) are listed too.
QJsonObject toJson(const SProjectChanges &changes, const PictureDifferences &pictures);

/// The same for people, a change a line.
QStringList toLines(const SProjectChanges &changes, const PictureDifferences &pictures);

/// A project for line by line comparison: each screen, item and value on a line of its own.
QStringList describe(const SProjectState &project);

} // namespace ChangesText
