#pragma once

/// Ends the program when a signal asks for it (SIGTERM, SIGINT, SIGHUP): at first exitCode()
/// tells so, and when the program is not over in LongestEnd, it is ended whatever it waits for.
/// Files that are being written then are taken back, so that each output is whole, or as it was
/// before. The exit code is that of shells for the signal: 128 and its number.
///
/// Threads: one of its own takes the signals; it is to be made before any other.
namespace StopSignals {

constexpr int LongestEnd = 700; ///< ms

void watch();
/// The code to end with when a signal has come; 0 before. To be looked at wherever much is done.
int exitCode();

} // namespace StopSignals
