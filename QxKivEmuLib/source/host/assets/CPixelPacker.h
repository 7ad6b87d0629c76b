#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace kivemu {

/// The code of `bits` bits, 5 or 6, for each sample from 0 to 255. The chip shows a code by
/// repeating its highest bits.
constexpr std::array<uint8_t, 256> nearestCodes(int bits)
{
    std::array<uint8_t, 256> codes{};
    int code = 0;
    for (int sample = 0; sample < 256; ++sample) {
        const auto value = [bits](int c) { return c << (8 - bits) | c >> (2 * bits - 8); };
        while (code + 1 < 1 << bits && value(code + 1) - sample <= sample - value(code))
            ++code;
        codes[static_cast<size_t>(sample)] = static_cast<uint8_t>(code);
    }
    return codes;
}

/// Turns rows of 8-bit RGB or grey samples into the chip's pixels. Each sample gets the code whose
/// value, as the chip shows it, is nearest; of two equally near ones the higher. The tool that
/// converts bitmaps rounds by the same rule.
class CPixelPacker
{
public:
    explicit CPixelPacker(bool mono) : m_mono(mono) {}

    size_t bytesPerPixel() const { return m_mono ? 1 : 2; }
    /// Samples in a row of the source: 1 grey, or 3 red, green and blue.
    int samples() const { return m_mono ? 1 : 3; }

    void packRow(const uint8_t *source, int width, uint8_t *target) const
    {
        static constexpr auto Five = nearestCodes(5);
        static constexpr auto Six = nearestCodes(6);
        for (int x = 0; x < width; ++x) {
            if (m_mono) {
                target[x] = source[x];
                continue;
            }
            const uint8_t *from = source + ptrdiff_t{3} * x;
            uint8_t *to = target + ptrdiff_t{2} * x;
            const uint32_t red = Five[from[0]];
            const uint32_t green = Six[from[1]];
            const uint32_t blue = Five[from[2]];
            const uint32_t pixel = red << 11 | green << 5 | blue;
            to[0] = static_cast<uint8_t>(pixel);
            to[1] = static_cast<uint8_t>(pixel >> 8);
        }
    }

private:
    bool m_mono;
};

} // namespace kivemu
