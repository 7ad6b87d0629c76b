#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kivemu {

/// What tells one state of a file from another.
struct SFileStamp
{
    uint64_t device = 0;
    uint64_t inode = 0;
    uint64_t size = 0;
    int64_t seconds = 0; ///< of the last change
    int64_t nanoseconds = 0;

    bool operator==(const SFileStamp &other) const
    {
        return device == other.device && inode == other.inode && size == other.size &&
               seconds == other.seconds && nanoseconds == other.nanoseconds;
    }
};

/// Looks at a file without opening it. Gives the reason when it is missing or no regular file,
/// otherwise an empty text; so for the next.
std::string stampOfFile(const std::string &path, SFileStamp &stamp);

/// Reads a whole regular file of at most `limit` bytes. Pipes and devices, which could block or
/// never end, are refused, also when they take the place of a file in between.
std::string readRegularFile(const std::string &path, size_t limit, std::vector<uint8_t> &bytes);
/// The same, of any regular file, but no more than its first `most` bytes.
std::string readFileStart(const std::string &path, size_t most, std::vector<uint8_t> &bytes);

} // namespace kivemu
