#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

namespace kivemu {

class CRamG;
struct SBitmapImage;

/// What the bitmap commands set, which is all that a decoded bitmap depends on.
struct SBitmapKey
{
    uint32_t format = 0;
    uint32_t address = 0;
    uint32_t stride = 0;
    uint32_t palette = 0;
    int width = 0;
    int height = 0;

    bool operator==(const SBitmapKey &other) const;
};

/// Decodes each bitmap of a graphics memory once.
/// Holds at most MaxBytes of pixels: when more would be needed, all are dropped.
class CBitmapCache
{
public:
    static constexpr size_t MaxBytes = 64U << 20;

    /// Drops what was decoded from other contents than those of `memory`.
    void follow(const CRamG &memory);
    /// Null when the bitmap is malformed or lies outside `memory`, the one that was followed last.
    std::shared_ptr<const SBitmapImage> find(const CRamG &memory, const SBitmapKey &key);

    size_t bytes() const { return m_bytes; }

    struct SHash
    {
        size_t operator()(const SBitmapKey &key) const;
    };

private:
    void clear();

    uint64_t m_generation = 0;
    size_t m_bytes = 0;
    std::unordered_map<SBitmapKey, std::shared_ptr<const SBitmapImage>, SHash> m_images;
};

} // namespace kivemu
