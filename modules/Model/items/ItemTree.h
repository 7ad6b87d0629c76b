#pragma once

#include <functional>

class CItemModel;
class CProjectModel;

// Walks through the tree of items: an item and all below it, groups before their members, front
// ones first. Nothing may be added or removed meanwhile. (CModelIterator walks as the emulator
// library draws, from the back.)

void forEachItem(CItemModel &root, const std::function<void(CItemModel &)> &visit);
void forEachItem(const CItemModel &root, const std::function<void(const CItemModel &)> &visit);
/// All screens and what is on them.
void forEachItem(const CProjectModel &project, const std::function<void(CItemModel &)> &visit);

using ItemTest = std::function<bool(const CItemModel &)>;
/// The first that passes the test; null when there is none.
const CItemModel *findItem(const CItemModel &root, const ItemTest &isWanted);
CItemModel *findItem(CItemModel &root, const ItemTest &isWanted);

/// What is on a screen, the way in which it is told to users everywhere.
struct SItemCounts
{
    int widgets = 0; ///< groups not counted
    int bitmaps = 0; ///< those of the widgets that show an image or a video from a file
    int hidden = 0;  ///< from the canvas, groups counted once with all that is in them
};
SItemCounts countItems(const CItemModel &screen);
