#pragma once

#include <QColor>
#include <QString>
#include <QVector>

class CItemModel;
class CProjectModel;

/// What a project has that can be put in the place of something else.
namespace SearchChoices {
/// Those of its items and screens, the most frequent first; at most so many.
QVector<QColor> colours(const CProjectModel &project, int limit);
/// Numbers of the fonts in ROM and of the project's own, ascending.
QVector<int> fonts(const CProjectModel &project);
/// Names of the images that its items show, sorted, each once.
QStringList images(const CProjectModel &project);
/// An item of the type that shows the image of this name; null when there is none.
CItemModel *itemWithImage(const CProjectModel &project, const QString &type, const QString &name);
} // namespace SearchChoices
