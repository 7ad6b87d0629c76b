#pragma once

/// A disk that does not answer: in a program that is linked with StalledDisk.cpp, or has it
/// preloaded, reading or flushing a file blocks until it is released, when its name, or
/// that of a folder that it lies in, begins with "stalled.". It then writes
/// "stalled" to the standard error output.
namespace stalleddisk {

/// How many calls have come to such a file.
int begun();
void release();

} // namespace stalleddisk
