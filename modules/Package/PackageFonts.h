#pragma once

#include "SScreenExport.h"

#include <QList>

#include <cstddef>

struct SPackageContent;

/// An asset where the emulator had it, and which of the package's it is.
struct SPlacedAsset
{
    SGraphicsMemory::SAsset asset;
    size_t index;
};

/// Puts the font blocks of all screens together where there is room (CFontMerge): the assets, the
/// lists' GLYPHs, and `placed`, which has each screen's assets. The lists have the emulator's
/// addresses still. Without a font nothing is changed.
void mergeFonts(SPackageContent &content, QList<QList<SPlacedAsset>> &placed);
