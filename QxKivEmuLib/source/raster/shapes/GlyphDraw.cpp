#include "shapes/PixelRange.h"
#include "shapes/Shapes.h"

#include "RomFonts.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kivemu {
namespace {

/// A glyph that the clip cuts on the left: its rows no longer start on whole groups of eight, so
/// each is copied before a kernel reads whole groups.
void drawCopied(const SCanvas &canvas, const romfonts::SGlyph &glyph, int left, int top,
                SPixelRange columns, SPixelRange rows, const SInk &ink)
{
    constexpr int Piece = 256;
    std::array<uint8_t, Piece + 8> coverage{};
    for (int y = rows.first; y < rows.end; ++y)
        for (int x = columns.first; x < columns.end; x += Piece) {
            const int width = std::min(Piece, columns.end - x);
            std::memcpy(coverage.data(),
                        glyph.coverage + static_cast<ptrdiff_t>(y - top) * glyph.stride +
                            (x - left),
                        static_cast<size_t>(width));
            canvas.kernels->maskRows(canvas.target.row(y) + x, canvas.target.stride,
                                     coverage.data(), 0, width, 1, ink);
        }
}

} // namespace

void drawGlyph(const SCanvas &canvas, const romfonts::SGlyph &glyph, int penX, int baselineY,
               const SInk &ink)
{
    if (!glyph.coverage)
        return;
    const SClip &clip = canvas.clip;
    const auto within = [](int64_t value, int low, int high) {
        return static_cast<int>(std::clamp<int64_t>(value, low, high));
    };
    const int64_t left = int64_t{penX} + glyph.left;
    const int64_t top = int64_t{baselineY} - glyph.top;
    const SPixelRange columns{within(left, clip.left, clip.right),
                              within(left + glyph.width, clip.left, clip.right)};
    const SPixelRange rows{within(top, clip.top, clip.bottom),
                           within(top + glyph.height, clip.top, clip.bottom)};
    if (columns.isEmpty() || rows.isEmpty())
        return;
    // What is visible lies near the clip, so that the differences fit an int.
    const int x = static_cast<int>(left);
    const int y = static_cast<int>(top);
    if (columns.first != x) {
        drawCopied(canvas, glyph, x, y, columns, rows, ink);
        return;
    }
    canvas.kernels->maskRows(canvas.target.row(rows.first) + x, canvas.target.stride,
                             glyph.coverage + static_cast<ptrdiff_t>(rows.first - y) * glyph.stride,
                             static_cast<size_t>(glyph.stride), columns.count(), rows.count(), ink);
}

} // namespace kivemu
