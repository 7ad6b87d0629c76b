#include "CBitmapCache.h"

#include "BitmapFormats.h"
#include "CRamG.h"

namespace kivemu {

bool SBitmapKey::operator==(const SBitmapKey &other) const
{
    return format == other.format && address == other.address && stride == other.stride &&
           palette == other.palette && width == other.width && height == other.height;
}

size_t CBitmapCache::SHash::operator()(const SBitmapKey &key) const
{
    uint64_t hash = 0;
    for (const uint32_t part :
         {key.format, key.address, key.stride, key.palette, static_cast<uint32_t>(key.width),
          static_cast<uint32_t>(key.height)})
        hash = (hash ^ part) * 0x9E3779B97F4A7C15U;
    return static_cast<size_t>(hash ^ hash >> 32);
}

void CBitmapCache::clear()
{
    m_images.clear();
    m_bytes = 0;
}

void CBitmapCache::follow(const CRamG &memory)
{
    if (memory.generation() == m_generation)
        return;
    clear();
    m_generation = memory.generation();
}

std::shared_ptr<const SBitmapImage> CBitmapCache::find(const CRamG &memory, const SBitmapKey &key)
{
    const auto found = m_images.find(key);
    if (found != m_images.end())
        return found->second;
    auto image = decodeBitmap(memory.data(), memory.used(), key.format, key.address, key.stride,
                              key.palette, key.width, key.height);
    if (!image)
        return nullptr;
    const size_t size = image->pixels.size() * sizeof(uint32_t);
    if (m_bytes + size > MaxBytes)
        clear();
    m_images.emplace(key, image);
    m_bytes += size;
    return image;
}

} // namespace kivemu
