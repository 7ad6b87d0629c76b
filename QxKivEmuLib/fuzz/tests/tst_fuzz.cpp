#include "FuzzChecks.h"
#include "displaylist/DisplayListText.h"
#include "support/ExampleLists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

using namespace kivemu;

namespace {

using Bytes = std::vector<uint8_t>;
using Check = std::string (*)(const uint8_t *data, size_t size);

struct SSubject
{
    const char *folder;
    Check check;
    int mutations; ///< of each seed
};

const SSubject Subjects[] = {{"displaylist", checkDisplayList, 120},
                             {"assembler", checkAssembler, 1500},
                             {"bitmap", checkBitmap, 1500},
                             {"images", checkImages, 400}};

std::vector<Bytes> corpus(const char *folder)
{
    const char *source = std::getenv("KIV_SOURCE_DIR");
    EXPECT_NE(source, nullptr) << "run by ctest";
    std::vector<std::filesystem::path> files;
    const std::string path = std::string(source ? source : "") + "/QxKivEmuLib/fuzz/corpus/";
    for (const auto &entry : std::filesystem::directory_iterator(path + folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<Bytes> inputs;
    for (const auto &file : files) {
        std::ifstream stream(file, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(stream),
                            std::istreambuf_iterator<char>());
    }
    return inputs;
}

/// A few changes of the kinds that break readers: flipped bits, extreme bytes, pieces that are cut
/// out, doubled, or taken from another input.
Bytes mutated(Bytes bytes, const std::vector<Bytes> &others, std::mt19937 &random)
{
    constexpr uint8_t Extremes[] = {0, 1, 0x7F, 0x80, 0xFF};
    for (size_t changes = 1 + random() % 6; changes > 0 && !bytes.empty(); --changes) {
        const Bytes &other = others[random() % others.size()];
        const size_t at = random() % bytes.size();
        const size_t length = std::min(bytes.size() - at, 1 + random() % 16);
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = begin + static_cast<std::ptrdiff_t>(length);
        const Bytes piece(begin, end);
        switch (random() % 6) {
        case 0:
            bytes[at] ^= static_cast<uint8_t>(1U << random() % 8);
            break;
        case 1:
            std::fill(begin, random() % 2 ? end : begin + 1, Extremes[random() % 5]);
            break;
        case 2:
            bytes.erase(begin, end);
            break;
        case 3:
            bytes.insert(begin, piece.begin(), piece.end());
            break;
        case 4:
            bytes.resize(at);
            break;
        default:
            std::copy_n(other.begin(), std::min(length, other.size()), begin);
        }
    }
    return bytes;
}

std::string hex(const Bytes &bytes)
{
    std::string text;
    for (const uint8_t byte : bytes) {
        text += "0123456789abcdef"[byte >> 4];
        text += "0123456789abcdef"[byte & 15];
    }
    return text;
}

} // namespace

TEST(Fuzz, inputsOfTheCorpusPassAlsoWhenMutated)
{
    for (const SSubject &subject : Subjects) {
        const auto inputs = corpus(subject.folder);
        EXPECT_GE(inputs.size(), 5U) << subject.folder;
        std::mt19937 random(42);
        for (const Bytes &input : inputs) {
            EXPECT_EQ(subject.check(input.data(), input.size()), "") << subject.folder;
            for (int i = 0; i < subject.mutations; ++i) {
                const Bytes changed = mutated(input, inputs, random);
                ASSERT_EQ(subject.check(changed.data(), changed.size()), "")
                    << subject.folder << " " << hex(changed);
            }
        }
    }
}

// Words of known commands with any operands: most of them reach the rasterizer, by each of its sets
// of kernels.
TEST(Fuzz, randomCommandsPass)
{
    std::mt19937 random(7);
    const std::vector<SExample> examples = exampleLists();
    for (int round = 0; round < 600; ++round) {
        const SExample &example = examples[random() % examples.size()];
        std::vector<uint32_t> words = example.words;
        for (uint32_t &word : words) {
            if (random() % 8 == 0)
                word ^= static_cast<uint32_t>(random() & random() & random() & 0xFFFFFF);
        }
        const Bytes list = toBytes(words);
        const size_t used = example.memory.used();
        Bytes input = {static_cast<uint8_t>(random()), static_cast<uint8_t>(used),
                       static_cast<uint8_t>(used >> 8)};
        input.insert(input.end(), example.memory.data(), example.memory.data() + used);
        input.insert(input.end(), list.begin(), list.end());
        ASSERT_EQ(checkDisplayList(input.data(), input.size()), "") << hex(input);
    }
}
