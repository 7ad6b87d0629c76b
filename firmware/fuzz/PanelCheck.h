#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Opens arbitrary bytes as a package, their check sum put right so that more than that is reached,
/// shows every screen there and back, and touches it. Gives what is wrong, or an empty text: a blob
/// is refused, or nothing outside of it is read (a sanitizer sees that), nothing outside of the
/// chip's memories is written, what a screen names lies in RAM_G, and its frame is drawn.
std::string checkPanel(const uint8_t *data, size_t size);
