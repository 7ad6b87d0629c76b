#pragma once

#include <QSize>
#include <QString>
#include <QVector>

#include <cstddef>
#include <cstdint>

class CItemModel;

/// What of the chip's memories something takes; bytes.
struct SMemoryUse
{
    size_t used = 0;
    size_t budget = 0;
};

/// A bitmap, picture or font in graphics memory.
struct SAssetUse
{
    QString file; ///< full path
    uint32_t format = 0;
    QSize pixels;                      ///< of a font the number of its glyphs x 1
    size_t bytes = 0;                  ///< its palette among them
    QVector<const CItemModel *> items; ///< that draw it, front ones first, each once
};

struct SItemUse
{
    const CItemModel *item = nullptr;
    size_t displayListBytes = 0;
};

/// A screen's share. Its assets and `ramGRest` are together what the emulator says of RAM_G, its
/// items and `ramDlRest` what it says of RAM_DL.
struct SScreenBudget
{
    const CItemModel *screen = nullptr;
    SMemoryUse ramG;
    SMemoryUse ramDl;
    QVector<SAssetUse> assets; ///< largest first; images that did not fit are among them
    QVector<SItemUse> items;   ///< largest first, without those that draw nothing
    size_t ramGRest = 0;       ///< gaps between assets, and what did not fit any more
    size_t ramDlRest = 0;      ///< the screen's own, and items without an id
};

struct SProjectBudget
{
    QVector<SScreenBudget> screens;
    QVector<SAssetUse> assets; ///< each once, with the items of all screens; largest first
};
