#include "CDrawingBudget.h"

namespace kivemu {

namespace {

constexpr uint64_t WorkPerDecodedPixel = 2;

std::string tooMuch(const char *who, uint64_t limit)
{
    return std::string("left out from here on, because ") + who + " has drawn more than " +
           std::to_string(limit / 1'000'000) + " million pixels";
}

} // namespace

void CDrawingBudget::countBitmap(const SBitmapKey &key)
{
    const auto pixels = static_cast<uint64_t>(key.width) * static_cast<uint64_t>(key.height);
    const bool isNew = m_known.insert(key).second;
    if (isNew)
        m_knownPixels += pixels;
    // More than the cache holds may have to be decoded again and again.
    if (isNew || m_knownPixels * sizeof(uint32_t) > CBitmapCache::MaxBytes)
        m_decoding += pixels * WorkPerDecodedPixel;
}

void CDrawingBudget::countMask(int width, int height)
{
    m_decoding +=
        static_cast<uint64_t>(width) * static_cast<uint64_t>(height) * WorkPerDecodedPixel;
}

std::string CDrawingBudget::excess(uint64_t drawn) const
{
    const bool isFrame = drawn + m_decoding > MostOfFrame;
    return isFrame ? tooMuch("the frame", MostOfFrame) : tooMuch("the item", MostOfItem);
}

} // namespace kivemu
