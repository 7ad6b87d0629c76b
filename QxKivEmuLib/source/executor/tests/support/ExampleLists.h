#pragma once

#include "executor/CRamG.h"

#include <cstdint>
#include <vector>

namespace kivemu {

/// A display list and the memory that it draws from.
struct SExample
{
    const char *name;
    std::vector<uint32_t> words;
    CRamG memory;
};

constexpr int ExampleWidth = 160;
constexpr int ExampleHeight = 120;

/// Well-formed lists for a frame of ExampleWidth x ExampleHeight, which between them use every
/// command, every bitmap format and all clip, wrap and filter modes: texts of the fuzz corpus.
std::vector<SExample> exampleLists();

} // namespace kivemu
