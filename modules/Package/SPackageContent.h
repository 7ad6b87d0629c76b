#pragma once

#include "CRamGPlan.h"

#include <QByteArray>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

/// The content of one bitmap or font block, stored once whatever its files are called.
struct SPackageAsset
{
    QStringList files; ///< relative to the project's folder, the first one that was met first
    QString identifier;
    uint32_t format = 0; ///< this and the next as in EmuAsset
    uint32_t width = 0;
    uint32_t height = 0;
    uint32_t stride = 0;
    uint32_t texelBytes = 0;
    uint32_t paletteOffset = 0; ///< 0 without a palette, as the next
    uint32_t paletteBytes = 0;
    QByteArray bytes; ///< texels and, at the palette's offset, the palette
};

struct SPackageItem
{
    struct SWords
    {
        size_t first; ///< index of a word in the screen's display list
        size_t count;
    };
    QString name;
    QString identifier;
    QString type;
    QString id;
    uint32_t tag = 0;
    QString group;
    QRectF bounds;
    double turn = 0;
    std::array<QPointF, 4> outline; ///< pixels, clockwise
    QList<SWords> words;            ///< with the item's tag; empty when it draws nothing
    QList<size_t> assets;           ///< that it draws, ascending
};

struct SPackageScreen
{
    QString name;
    QString identifier;
    std::vector<uint32_t> words; ///< the display list, with the plan's addresses
    uint32_t ramGBefore = 0;     ///< bytes of RAM_G that the emulator used
    std::vector<size_t> assets;  ///< that the display list draws, ascending
    QList<SPackageItem> items;   ///< front-most first
    QStringList findings;
};

/// All that a package says, before it takes one of its forms.
struct SPackageContent
{
    QString project; ///< its name
    QString platform;
    uint32_t chipCode = 0;
    uint32_t ramGBudget = 0;  ///< bytes
    uint32_t ramDlBudget = 0; ///< bytes
    QSize frame;              ///< pixels
    QList<SPackageAsset> assets;
    QList<SPackageScreen> screens;
    std::shared_ptr<const CRamGPlan> plan;
};
