#pragma once

/// A disk that does not answer: in a program that is linked with StalledRead.cpp, or has it
/// preloaded, reading a file named "stalled.png" blocks until it is released.
namespace stalledread {

/// How many reads have come to such a file.
int begun();
void release();

} // namespace stalledread
