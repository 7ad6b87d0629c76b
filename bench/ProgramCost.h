#pragma once

#include <vector>

namespace bench {

/// What a program took from its start to its end.
struct SProgramCost
{
    double seconds;
    double processorSeconds;
    double megabytes; ///< at most
    int exitCode;     ///< -1: it did not end by itself
};

enum class ECores { All, One };

/// Runs a program of the build's bin folder in `folder`; what it says is thrown away.
SProgramCost programCost(const char *folder, const std::vector<const char *> &words,
                         ECores cores = ECores::All);

} // namespace bench
