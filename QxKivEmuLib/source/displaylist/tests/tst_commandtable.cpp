#include "../tools/DisplayListMarkdown.h"
#include "displaylist/CommandTable.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

using namespace kivemu;

TEST(CommandTable, listLengthCutsAtTheFirstEndThatIsACommand)
{
    const uint32_t item = headerWord(EOpcode::Item, 0);
    // The id 0 looks like END but is the operand of ITEM.
    const std::vector<uint32_t> words = {item, 0, headerWord(EOpcode::Save, 0), 0, item, 7, 0};
    EXPECT_EQ(listLength(words.data(), words.size()), 4U);
    EXPECT_EQ(listLength(words.data() + 4, 3), 3U);
    EXPECT_EQ(listLength(words.data(), 3), 3U) << "no END";
    EXPECT_EQ(listLength(words.data(), 1), 1U) << "operands missing";
    EXPECT_EQ(listLength(words.data(), 0), 0U);
}

TEST(CommandTable, theDocumentationIsUpToDate)
{
    const char *source = std::getenv("KIV_SOURCE_DIR");
    ASSERT_NE(source, nullptr) << "run by ctest";
    std::ifstream file(std::string(source) + "/docs/display-list.md", std::ios::binary);
    const std::string page((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(page, displayListMarkdown()) << "run displaylist-doc > docs/display-list.md";
}
