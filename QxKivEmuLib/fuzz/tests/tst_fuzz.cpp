#include "FuzzChecks.h"
#include "FuzzFonts.h"
#include "support/Corpus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

using namespace kivemu;

namespace {

using Bytes = std::vector<uint8_t>;
using Check = std::string (*)(const uint8_t *data, size_t size);

struct SSubject
{
    std::string folder;
    Check check;
    int mutations; ///< of each seed
};

const SSubject Subjects[] = {{"displaylist", checkDisplayList, 300},
                             {"assembler", checkAssembler, 1500},
                             {"bitmap", checkBitmap, 1500},
                             {"images", checkImages, 400}};

/// A few changes of the kinds that break readers: flipped bits, here or here and there, extreme
/// bytes, pieces that are cut out, doubled, or taken from another input.
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
        switch (random() % 7) {
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
        case 5: // leaves most commands known, with odd operands
            for (size_t i = at % 32; i < bytes.size(); i += 1 + random() % 64)
                bytes[i] ^= static_cast<uint8_t>(1U << random() % 8);
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

void expectAllPass(const std::string &subject, const std::vector<Bytes> &inputs, Check check,
                   int mutations)
{
    std::mt19937 random(42);
    for (const Bytes &input : inputs) {
        EXPECT_EQ(check(input.data(), input.size()), "") << subject << ' ' << hex(input);
        for (int i = 0; i < mutations; ++i) {
            const Bytes changed = mutated(input, inputs, random);
            ASSERT_EQ(check(changed.data(), changed.size()), "") << subject << " " << hex(changed);
        }
    }
}

} // namespace

TEST(Fuzz, inputsOfTheCorpusPassAlsoWhenMutated)
{
    for (const SSubject &subject : Subjects) {
        std::vector<Bytes> inputs;
        for (const auto &[name, bytes] : corpus("QxKivEmuLib/fuzz/corpus/" + subject.folder))
            inputs.push_back(bytes);
        EXPECT_GE(inputs.size(), 5U) << subject.folder;
        expectAllPass(subject.folder, inputs, subject.check, subject.mutations);
    }
}

TEST(Fuzz, fontsPassAlsoWhenMutated)
{
    std::vector<Bytes> inputs;
    for (const char *name : {"variable.ttf", "variable.woff2", "restricted.ttf"}) {
        std::ifstream file(std::string(KIV_TEST_FONTS "/") + name, std::ios::binary);
        Bytes input{32, 1, 1, 200, 0};
        input.insert(input.end(), std::istreambuf_iterator<char>(file), {});
        EXPECT_GT(input.size(), 400U);
        inputs.push_back(input);
    }
    expectAllPass("fonts", inputs, checkFonts, 500);
}
