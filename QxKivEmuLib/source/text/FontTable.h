#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kivemu {

/// One font of a project: what texts with its handle are drawn in.
struct SFontLine
{
    int handle = 0; ///< 0 to 15
    std::string name;
    std::string file; ///< absolute, or relative to the project's working directory
    double size = 0;  ///< of the em, pixels: 4 to 256
    int bits = 8;     ///< of a texel
    std::vector<std::pair<std::string, double>> axes; ///< tag and value
    std::vector<int> fallback; ///< handles whose files are asked for what this one lacks
    std::u32string extra;      ///< characters that the firmware will write
    bool hasMoreExtra = false; ///< than are taken
};

/// Reads a project's fonts: a line for each, its fields parted by tabs (handle, name, file, size,
/// bits, axes, fallback, extra). Of two with the same handle the first holds. `problems` gets a
/// message for each line that cannot be read.
std::vector<SFontLine> parseFontTable(std::string_view text, std::vector<std::string> &problems);

} // namespace kivemu
