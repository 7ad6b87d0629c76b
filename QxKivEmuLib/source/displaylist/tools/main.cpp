// Prints docs/display-list.md.
#include "DisplayListMarkdown.h"

#include <cstdio>

int main()
{
    const std::string page = kivemu::displayListMarkdown();
    return std::fwrite(page.data(), 1, page.size(), stdout) == page.size() ? 0 : 1;
}
