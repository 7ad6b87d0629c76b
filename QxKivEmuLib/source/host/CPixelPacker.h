#pragma once

#include <cstdint>

namespace kivemu {

/// Turns rows of 8-bit RGB or grey samples into the chip's pixels.
class CPixelPacker
{
public:
    explicit CPixelPacker(bool mono) : m_mono(mono) {}

    int bytesPerPixel() const { return m_mono ? 1 : 2; }
    /// Samples in a row of the source: 1 grey, or 3 red, green and blue.
    int samples() const { return m_mono ? 1 : 3; }

    void packRow(const uint8_t *source, int width, uint8_t *target) const
    {
        for (int x = 0; x < width; ++x) {
            if (m_mono) {
                target[x] = source[x];
                continue;
            }
            const uint32_t red = source[3 * x];
            const uint32_t green = source[3 * x + 1];
            const uint32_t blue = source[3 * x + 2];
            const uint32_t pixel = (red >> 3) << 11 | (green >> 2) << 5 | blue >> 3;
            target[2 * x] = static_cast<uint8_t>(pixel);
            target[2 * x + 1] = static_cast<uint8_t>(pixel >> 8);
        }
    }

private:
    bool m_mono;
};

} // namespace kivemu
