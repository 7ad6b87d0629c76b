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
/// out, doubled, moved, or taken from another input.
class CMutator
{
public:
    explicit CMutator(uint32_t seed) : m_random(seed) {}

    Bytes mutated(Bytes bytes, const std::vector<Bytes> &others)
    {
        for (size_t changes = 1 + below(6); changes > 0 && !bytes.empty(); --changes)
            change(bytes, others[below(others.size())]);
        return bytes;
    }

private:
    size_t below(size_t limit) { return limit ? m_random() % limit : 0; }

    void change(Bytes &bytes, const Bytes &other)
    {
        constexpr uint8_t Extremes[] = {0, 1, 0x7F, 0x80, 0xFF};
        const size_t at = below(bytes.size());
        const size_t length = std::min(bytes.size() - at, 1 + below(16));
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = begin + static_cast<std::ptrdiff_t>(length);
        const Bytes piece(begin, end);
        switch (below(7)) {
        case 0:
            bytes[at] ^= static_cast<uint8_t>(1U << below(8));
            break;
        case 1:
            bytes[at] = Extremes[below(5)];
            break;
        case 2:
            std::fill(begin, end, Extremes[below(5)]);
            break;
        case 3:
            bytes.erase(begin, end);
            break;
        case 4:
            bytes.insert(begin, piece.begin(), piece.end());
            break;
        case 5:
            bytes.resize(at);
            break;
        default: {
            const size_t from = below(other.size());
            std::copy_n(other.begin() + static_cast<std::ptrdiff_t>(from),
                        std::min(length, other.size() - from), begin);
        }
        }
    }

    std::mt19937 m_random;
};

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
        CMutator mutator(42);
        for (const Bytes &input : inputs) {
            EXPECT_EQ(subject.check(input.data(), input.size()), "") << subject.folder;
            for (int i = 0; i < subject.mutations; ++i) {
                const Bytes mutated = mutator.mutated(input, inputs);
                ASSERT_EQ(subject.check(mutated.data(), mutated.size()), "")
                    << subject.folder << " " << hex(mutated);
            }
        }
    }
}

// Words of known commands with any operands: most of them reach the rasterizer.
TEST(Fuzz, randomCommandsPass)
{
    std::mt19937 random(7);
    const std::vector<SExample> examples = exampleLists();
    for (int round = 0; round < 300; ++round) {
        SExample example = examples[random() % examples.size()];
        for (uint32_t &word : example.words) {
            if (random() % 8 == 0)
                word ^= static_cast<uint32_t>(random() & random() & random() & 0xFFFFFF);
        }
        Bytes input = displayListInput(example);
        input[0] = static_cast<uint8_t>(random());
        ASSERT_EQ(checkDisplayList(input.data(), input.size()), "") << hex(input);
    }
}
