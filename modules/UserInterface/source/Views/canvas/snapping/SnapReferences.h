#pragma once

#include "SSnapped.h"

class CItemModel;
class CScreenModel;

/// What things on a screen can be in line with.
namespace SnapReferences {
/// All of the screen but what moves: the items, those that they hold and those that hold them.
/// Turned items by what they take up, locked ones as well; hidden ones are none, since nobody sees
/// them.
SSnapReferences of(const CScreenModel &screen, const QVector<CItemModel *> &moving);
} // namespace SnapReferences
