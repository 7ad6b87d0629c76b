#include "BitmapSamples.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace bench {

namespace {

using kivemu::EBitmapFormat;
using Bytes = std::vector<uint8_t>;

constexpr int BlockSide = 4;

struct SColour
{
    uint32_t a, r, g, b; ///< 0 .. 255, not multiplied by alpha
};

SColour texel(int x, int y, int width, int height)
{
    const double radius = std::min(width, height) / 2.0;
    const double fromCentre = std::hypot(x + 0.5 - width / 2.0, y + 0.5 - height / 2.0) / radius;
    const double share = std::clamp((0.98 - fromCentre) / 0.3, 0.0, 1.0);
    const auto part = [](int value, int of) { return static_cast<uint32_t>(value * 255 / of); };
    return {static_cast<uint32_t>(share * 255), part(x, width), part(y, height),
            part((x + y) % height, height)};
}

/// The channels cut to so many bits, the first one in the most significant ones.
uint32_t packed(const SColour &c, int aBits, int rBits, int gBits, int bBits)
{
    uint32_t result = 0;
    const auto add = [&](uint32_t value, int bits) {
        result = result << bits | value >> (8 - bits);
    };
    add(c.a, aBits);
    add(c.r, rBits);
    add(c.g, gBits);
    add(c.b, bBits);
    return result;
}

void put(Bytes &bytes, uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<uint8_t>(value >> 8 * i));
}

template<class Encode>
Bytes eachTexel(int width, int height, Encode encode)
{
    Bytes bytes;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            encode(bytes, texel(x, y, width, height), x);
    return bytes;
}

Bytes packedPixels(int width, int height, std::array<int, 4> bits)
{
    const int size = (bits[0] + bits[1] + bits[2] + bits[3]) / 8;
    return eachTexel(width, height, [&](Bytes &bytes, const SColour &c, int) {
        put(bytes, packed(c, bits[0], bits[1], bits[2], bits[3]), size);
    });
}

/// Bright where the picture is opaque, the left texel in the most significant bits.
Bytes luminance(int width, int height, int bits)
{
    const int perByte = 8 / bits;
    return eachTexel(width, height, [&](Bytes &bytes, const SColour &c, int x) {
        if (x % perByte == 0)
            bytes.push_back(0);
        const int shift = 8 - bits * (x % perByte + 1);
        bytes.back() = static_cast<uint8_t>(bytes.back() | c.a >> (8 - bits) << shift);
    });
}

/// Every colour of two bits a channel, its number being the packed colour.
Bytes palette(std::array<int, 4> bits)
{
    const int size = (bits[0] + bits[1] + bits[2] + bits[3]) / 8;
    Bytes bytes;
    for (uint32_t i = 0; i < 256; ++i) {
        const SColour c{(i >> 6) * 85, (i >> 4 & 3) * 85, (i >> 2 & 3) * 85, (i & 3) * 85};
        put(bytes, packed(c, bits[0], bits[1], bits[2], bits[3]), size);
    }
    return bytes;
}

/// Each block runs from its top left texel's colour to its bottom right one's.
Bytes dxt1(int width, int height)
{
    Bytes bytes;
    for (int y = 0; y < height; y += BlockSide)
        for (int x = 0; x < width; x += BlockSide) {
            const auto end = [&](int offset) {
                return packed(texel(x + offset, y + offset, width, height), 0, 5, 6, 5);
            };
            put(bytes, std::max(end(0), end(BlockSide - 1)), 2);
            put(bytes, std::min(end(0), end(BlockSide - 1)), 2);
            put(bytes, 0x5FAF0A50, 4); // a diagonal of the four colours
        }
    return bytes;
}

} // namespace

std::vector<SBitmapSample> bitmapSamples(int width, int height)
{
    const int w = width;
    const int h = height;
    const Bytes indices = packedPixels(w, h, {2, 2, 2, 2});
    using F = EBitmapFormat;
    return {
        {F::Argb1555, "ARGB1555", w, h, packedPixels(w, h, {1, 5, 5, 5}), {}},
        {F::L1, "L1", w, h, luminance(w, h, 1), {}},
        {F::L2, "L2", w, h, luminance(w, h, 2), {}},
        {F::L4, "L4", w, h, luminance(w, h, 4), {}},
        {F::L8, "L8", w, h, luminance(w, h, 8), {}},
        {F::Rgb332, "RGB332", w, h, packedPixels(w, h, {0, 3, 3, 2}), {}},
        {F::Argb2, "ARGB2", w, h, indices, {}},
        {F::Argb4, "ARGB4", w, h, packedPixels(w, h, {4, 4, 4, 4}), {}},
        {F::Rgb565, "RGB565", w, h, packedPixels(w, h, {0, 5, 6, 5}), {}},
        {F::Paletted, "PALETTED", w, h, indices, palette({8, 8, 8, 8})},
        {F::Paletted8, "PALETTED8", w, h, indices, palette({8, 8, 8, 8})},
        {F::Paletted565, "PALETTED565", w, h, indices, palette({0, 5, 6, 5})},
        {F::Paletted4444, "PALETTED4444", w, h, indices, palette({4, 4, 4, 4})},
        {F::Dxt1, "DXT1", w, h, dxt1(w, h), {}},
    };
}

} // namespace bench
