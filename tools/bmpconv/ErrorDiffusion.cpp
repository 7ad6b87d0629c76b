#include "ErrorDiffusion.h"

#include "PixelCodes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kivtools {

namespace {

/// Goes over a plane row by row and carries the errors along.
class CErrorDiffusion
{
public:
    CErrorDiffusion(int width, int bits)
        : m_here(static_cast<size_t>(width) + 2), m_below(static_cast<size_t>(width) + 2)
    {
        for (int value = 0; value < 256; ++value)
            m_codes[static_cast<size_t>(value)] = static_cast<uint8_t>(valueToCode(value, bits));
        for (int code = 0; code < 1 << bits; ++code)
            m_values.push_back(static_cast<float>(codeToValue(code, bits)));
    }

    void row(const uint8_t *values, const uint8_t *visible, uint8_t *codes)
    {
        const int width = static_cast<int>(m_here.size()) - 2;
        for (int i = 0; i < width; ++i) {
            const int x = m_forward ? i : width - 1 - i;
            codes[x] = pixel(static_cast<size_t>(x) + 1, values[x], visible[x]);
        }
        m_here.swap(m_below);
        std::fill(m_below.begin(), m_below.end(), 0.0F);
        m_forward = !m_forward;
    }

private:
    uint8_t pixel(size_t slot, uint8_t value, uint8_t visible)
    {
        const float wanted = static_cast<float>(value) + m_here[slot];
        const float reachable = std::clamp(wanted, 0.0F, 255.0F);
        const uint8_t code = m_codes[static_cast<size_t>(std::lround(reachable))];
        // Floyd and Steinberg's shares: 7 ahead, 3, 5 and 1 below.
        const float error = (wanted - m_values[code]) * static_cast<float>(visible) / (255.0F * 16);
        const size_t ahead = m_forward ? slot + 1 : slot - 1;
        const size_t behind = m_forward ? slot - 1 : slot + 1;
        m_here[ahead] += error * 7;
        m_below[behind] += error * 3;
        m_below[slot] += error * 5;
        m_below[ahead] += error;
        return code;
    }

    bool m_forward = true;
    std::array<uint8_t, 256> m_codes{}; ///< nearest code of each value
    std::vector<float> m_values;        ///< what each code shows
    std::vector<float> m_here; ///< errors handed to this row, with one slot more on either side
    std::vector<float> m_below;
};

} // namespace

std::vector<uint8_t> quantisePlane(const SPlane &plane, int bits, EDither dither,
                                   const std::vector<uint8_t> &visible)
{
    std::vector<uint8_t> codes(plane.values.size());
    if (dither == EDither::None) {
        std::transform(plane.values.begin(), plane.values.end(), codes.begin(),
                       [bits](uint8_t v) { return static_cast<uint8_t>(valueToCode(v, bits)); });
        return codes;
    }
    CErrorDiffusion diffusion(plane.width, bits);
    for (int y = 0; y < plane.height; ++y) {
        const size_t start = static_cast<size_t>(y) * static_cast<size_t>(plane.width);
        diffusion.row(&plane.values[start], &visible[start], &codes[start]);
    }
    return codes;
}

} // namespace kivtools
