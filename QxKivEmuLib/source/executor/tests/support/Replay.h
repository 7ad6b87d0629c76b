#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kivemu {

class CExecutor;
class CRamG;

/// An executed frame, row by row without padding, and what was wrong in its list.
struct SFrame
{
    std::vector<uint32_t> pixels;
    std::vector<std::string> errors;
};

/// A frame executed once, over a surface that holds `oldPixels`.
SFrame execute(CExecutor &executor, const std::vector<uint32_t> &words, const CRamG &memory,
               int width, int height, uint32_t oldPixels);

/// What differs between two frames of that width; empty: nothing.
std::string difference(const SFrame &a, const SFrame &b, int width);

struct SReplay
{
    std::vector<uint32_t> frame;
    std::vector<std::string> errors;
    /// What differs between two executions of the same bytes, over unlike surfaces and with the
    /// bitmaps decoded anew or kept; empty: nothing.
    std::string difference;
};

/// Executes the bytes of a display list, as an export holds them, twice.
SReplay replay(const std::vector<uint8_t> &bytes, const CRamG &memory, int width, int height);

} // namespace kivemu
