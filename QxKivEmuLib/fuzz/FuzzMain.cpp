// The entry of each libFuzzer target; the build names its check and the header that has it.
#include KIV_CHECK_HEADER

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string wrong = KIV_CHECK(data, size);
    if (!wrong.empty()) {
        std::fprintf(stderr, "%s\n", wrong.c_str());
        std::abort();
    }
    return 0;
}
