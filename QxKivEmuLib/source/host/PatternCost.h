#pragma once

#include <cstddef>
#include <string_view>

namespace kivemu {

/// An upper bound of the steps that matching a Lua pattern may take: a few repetitions in a row
/// make a backtracking matcher try every way to share the subject among them, and nothing can stop
/// it while it does. Every repetition counts as one place to choose in the subject, a start that is
/// free as one more, every "?" as a choice of two, and a set by its length.
double patternSteps(std::string_view pattern, size_t subjectLength);

/// The most steps that are allowed to a single call, some 50 ms.
constexpr double MaxPatternSteps = 1e7;

} // namespace kivemu
