#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Properties that hold for any input. Each check gives what is wrong, or an empty text.
namespace kivemu {

/// Executes arbitrary words against arbitrary memory: the frame stays opaque, and is the same over
/// another surface and with other kernels. The words also survive their text form.
/// Input: a byte that chooses the frame's size and the kernels, two of the memory's length, the
/// memory, the list.
std::string checkDisplayList(const uint8_t *data, size_t size);

/// Assembles arbitrary text: it is refused with a message, or its words survive their text form.
std::string checkAssembler(const uint8_t *data, size_t size);

/// Decodes arbitrary memory: there is a bitmap exactly when it lies within, and no channel is above
/// its alpha.
/// Input: a byte for the format, 4 each for address, stride and palette, 2 each for width and
/// height, the memory.
std::string checkBitmap(const uint8_t *data, size_t size);

/// Decodes an arbitrary JPEG, PNG or AVI file: it is refused with a reason and within its limits,
/// or it is a picture that fills its size and fits the budget, the same each time. Input: a byte
/// that chooses the kind, mono and the budget, the file (a PNG's check sums are put right).
std::string checkImages(const uint8_t *data, size_t size);

} // namespace kivemu
