#pragma once

#include "CBitmapCache.h"

#include <cstdint>
#include <string>
#include <unordered_set>

namespace kivemu {

/// How much of its frame's and its item's share of work a display list has used. Work is about a
/// pixel that is filled (raster/DrawingWork.h) or decoded. It depends on the list and the sizes of
/// its bitmaps alone, so that the same list ends at the same place on every machine.
class CDrawingBudget
{
public:
    /// A frame has what fills the largest screen a hundred times, which no chip could draw in time;
    /// an item half of that, so that one leaves room for the others.
    static constexpr uint64_t MostOfFrame = 400'000'000;
    static constexpr uint64_t MostOfItem = MostOfFrame / 2;

    /// `drawn`, here and below: the rasterizer's work so far.
    void beginItem(uint64_t drawn) { m_itemBegin = drawn + m_decoding; }
    /// A bitmap is looked up. Counts as if nothing had been decoded before this frame, so that a
    /// frame does not depend on those before it.
    void countBitmap(const SBitmapKey &key);
    /// A glyph's mask is drawn. Counts as if it were expanded each time.
    void countMask(int width, int height);
    /// Whether nothing more may be drawn.
    bool isExceeded(uint64_t drawn) const
    {
        const uint64_t work = drawn + m_decoding;
        return work > MostOfFrame || work - m_itemBegin > MostOfItem;
    }
    /// Why not.
    std::string excess(uint64_t drawn) const;

private:
    uint64_t m_itemBegin = 0;
    uint64_t m_decoding = 0;
    std::unordered_set<SBitmapKey, CBitmapCache::SHash> m_known;
    uint64_t m_knownPixels = 0;
};

} // namespace kivemu
