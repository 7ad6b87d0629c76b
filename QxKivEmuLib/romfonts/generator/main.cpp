// Draws the ROM fonts with FreeType and writes them as a C++ source file.
#include "../RomFonts.h"
#include "CFontFace.h"
#include "CRomImage.h"

#include <cstdio>
#include <exception>

namespace {

/// Line heights of fonts 16 to 34.
constexpr int Heights[] = {8,  8,  16, 16, 13, 17, 20, 22, 29, 38,
                           16, 20, 25, 28, 36, 49, 63, 83, 108};
static_assert(sizeof Heights / sizeof *Heights == romfonts::LastFont - romfonts::FirstFont + 1);

constexpr int FirstBold = 20;
constexpr int FirstRegular = 26;

bool generate(const char *monoFile, const char *boldFile, const char *regularFile,
              const char *output)
{
    CFontFace mono(monoFile);
    CFontFace bold(boldFile);
    CFontFace regular(regularFile);
    CRomImage image;
    for (int font = romfonts::FirstFont; font <= romfonts::LastFont; ++font) {
        CFontFace &face = font < FirstBold ? mono : font < FirstRegular ? bold : regular;
        const int height = Heights[font - romfonts::FirstFont];
        face.fitLineHeight(height);
        image.add(face, height);
    }
    return image.write(output);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5) {
        std::fprintf(stderr, "usage: genromfonts MONO.ttf BOLD.ttf REGULAR.ttf OUTPUT.cpp\n");
        return 2;
    }
    try {
        if (generate(argv[1], argv[2], argv[3], argv[4]))
            return 0;
        std::fprintf(stderr, "%s: cannot be written\n", argv[4]);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}
