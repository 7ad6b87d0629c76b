#include "ExampleLists.h"

#include "Corpus.h"
#include "displaylist/DisplayListText.h"

namespace kivemu {

std::vector<SExample> exampleLists()
{
    constexpr size_t MemoryBytes = 8192; ///< what the bitmaps need, all of it noise
    CRamG memory(MemoryBytes);
    std::vector<uint8_t> noise(MemoryBytes);
    for (size_t i = 0; i < noise.size(); ++i)
        noise[i] = static_cast<uint8_t>(i * i / 7 + i * 37);
    memory.append(noise.data(), noise.size());

    auto texts = corpus("QxKivEmuLib/fuzz/corpus/assembler");
    std::vector<SExample> examples;
    for (const char *name : {"bitmaps", "paths", "shapes", "states", "texts"}) {
        const std::string text(texts[name].begin(), texts[name].end());
        examples.push_back({name, assemble(text, nullptr).value(), memory});
    }
    return examples;
}

} // namespace kivemu
