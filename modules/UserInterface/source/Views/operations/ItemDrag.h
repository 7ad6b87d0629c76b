#pragma once

#include <QString>
#include <QVector>

class CItemModel;
class CProjectModel;
class QMimeData;

/// Widgets and groups that are dragged from the explorer to a place on a canvas, within one run of
/// the program.
namespace ItemDrag {
extern const QString Mime;

/// The items as the payload of a drag, owned by the caller.
QMimeData *toMimeData(const QVector<CItemModel *> &items);
/// What such a payload means in the project, in its order; nothing when it comes from elsewhere.
QVector<CItemModel *> fromMimeData(const QMimeData &data, const CProjectModel &project);
} // namespace ItemDrag
