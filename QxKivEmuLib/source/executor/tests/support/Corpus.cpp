#include "Corpus.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kivemu {

std::map<std::string, std::vector<uint8_t>> corpus(const std::string &folder)
{
    const char *sources = std::getenv("KIV_SOURCE_DIR");
    const std::filesystem::path path = (sources ? sources : ".") + ("/" + folder);
    std::map<std::string, std::vector<uint8_t>> inputs;
    std::error_code isMissing;
    for (const auto &entry : std::filesystem::directory_iterator(path, isMissing)) {
        std::ifstream file(entry.path(), std::ios::binary);
        inputs[entry.path().filename()].assign(std::istreambuf_iterator<char>(file), {});
    }
    return inputs;
}

} // namespace kivemu
