#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kivemu {

/// From a text's pen to what is seen as its middle: that of its ink, but figures count with the
/// space about them, so that a reading stands still while they change.
double romMiddle(int font, std::string_view latin1);

/// A text, or its longest beginning with an ellipsis that is at most so wide; empty when not even
/// that fits.
std::string romFit(int font, std::string_view utf8, double width);

/// A text in lines that end at blanks and line ends; a word that is too long is cut with an
/// ellipsis, and so is the last line when the rest does not fit into it.
struct SRomLines
{
    std::vector<std::string> lines;
    bool isWhole = true;
};
SRomLines romWrap(int font, std::string_view utf8, double width, size_t mostLines);

} // namespace kivemu
