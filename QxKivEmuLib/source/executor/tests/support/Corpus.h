#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace kivemu {

/// The inputs that lie in a folder of the sources, such as "QxKivEmuLib/fuzz/corpus/images", by
/// their file names. For tests that ctest runs; none when the folder is missing.
std::map<std::string, std::vector<uint8_t>> corpus(const std::string &folder);

} // namespace kivemu
