#include "CFontFile.h"

#include "pictures/FileReading.h"

#include <cstdlib>
#include <cstring>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H
#include FT_TRUETYPE_TAGS_H
#include FT_TRUETYPE_TABLES_H

namespace kivemu {

namespace {

constexpr size_t Header = alignof(std::max_align_t); ///< in front of each block: its size
static_assert(Header >= sizeof(size_t));

/// FreeType's memory, with an account. The same file needs the same on every machine.
struct SAccount
{
    size_t used = 0;
};

void *allocate(FT_Memory memory, long size)
{
    auto &account = *static_cast<SAccount *>(memory->user);
    if (size <= 0 || static_cast<size_t>(size) > CFontFile::MaxMemory - account.used)
        return nullptr;
    auto *block = static_cast<uint8_t *>(std::malloc(Header + static_cast<size_t>(size)));
    if (!block)
        return nullptr;
    const size_t bytes = static_cast<size_t>(size);
    std::memcpy(block, &bytes, sizeof bytes);
    account.used += bytes;
    return block + Header;
}

void release(FT_Memory memory, void *block)
{
    auto *start = static_cast<uint8_t *>(block) - Header;
    size_t bytes = 0;
    std::memcpy(&bytes, start, sizeof bytes);
    static_cast<SAccount *>(memory->user)->used -= bytes;
    std::free(start);
}

void *reallocate(FT_Memory memory, long, long size, void *block)
{
    void *larger = allocate(memory, size);
    if (!larger || !block)
        return larger;
    size_t bytes = 0;
    std::memcpy(&bytes, static_cast<uint8_t *>(block) - Header, sizeof bytes);
    std::memcpy(larger, block,
                bytes < static_cast<size_t>(size) ? bytes : static_cast<size_t>(size));
    release(memory, block);
    return larger;
}

uint32_t firstWord(const std::vector<uint8_t> &bytes)
{
    return bytes.size() < 4 ? 0
                            : static_cast<uint32_t>(bytes[0]) << 24 | uint32_t{bytes[1]} << 16 |
                                  uint32_t{bytes[2]} << 8 | bytes[3];
}

constexpr uint32_t Woff2 = 0x774F4632;

/// FreeType unpacks the end of the last glyph as an offset in the file, where it should be one in
/// the table of glyphs; who is strict about it takes that glyph for damaged.
void mendLastGlyph(std::vector<uint8_t> &font)
{
    constexpr size_t Directory = 12;
    constexpr size_t Entry = 16;
    const auto number = [&font](size_t at, size_t count) {
        uint32_t value = 0;
        for (size_t i = 0; i < count; ++i)
            value = value << 8 | (at + i < font.size() ? font[at + i] : 0U);
        return value;
    };
    size_t head = 0;
    size_t locaEnd = 0;
    uint32_t glyphBytes = 0;
    for (size_t i = 0; i < number(4, 2); ++i) {
        const size_t entry = Directory + i * Entry;
        const uint32_t tag = number(entry, 4);
        if (tag == TTAG_head)
            head = number(entry + 8, 4);
        else if (tag == TTAG_loca)
            locaEnd = size_t{number(entry + 8, 4)} + number(entry + 12, 4);
        else if (tag == TTAG_glyf)
            glyphBytes = number(entry + 12, 4);
    }
    constexpr size_t LocationFormat = 50;
    const bool isLong = head > 0 && number(head + LocationFormat, 2) != 0;
    const size_t size = isLong ? 4 : 2;
    if (head == 0 || locaEnd < size || locaEnd > font.size())
        return;
    const uint32_t end = isLong ? glyphBytes : glyphBytes / 2;
    if (number(locaEnd - size, size) <= end)
        return;
    for (size_t i = 0; i < size; ++i)
        font[locaEnd - 1 - i] = static_cast<uint8_t>(end >> (8 * i));
}

bool isFontStart(uint32_t word)
{
    constexpr uint32_t TrueType = 0x00010000;
    constexpr uint32_t AppleTrueType = 0x74727565;
    constexpr uint32_t OpenType = 0x4F54544F;
    constexpr uint32_t Collection = 0x74746366;
    return word == TrueType || word == AppleTrueType || word == OpenType || word == Collection ||
           word == Woff2;
}

} // namespace

struct CFontFile::SLibrary
{
    SLibrary()
    {
        if (FT_New_Library(&memory, &library) == 0)
            FT_Add_Default_Modules(library);
    }
    ~SLibrary()
    {
        if (library)
            FT_Done_Library(library); // with its faces
    }
    SLibrary(const SLibrary &) = delete;
    SLibrary &operator=(const SLibrary &) = delete;

    SAccount account;
    FT_MemoryRec_ memory{&account, allocate, release, reallocate};
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    std::vector<uint8_t> bytes;
};

CFontFile::CFontFile() = default;
CFontFile::~CFontFile() = default;
CFontFile::CFontFile(CFontFile &&) noexcept = default;
CFontFile &CFontFile::operator=(CFontFile &&) noexcept = default;

bool CFontFile::isOpen() const
{
    return m_library != nullptr;
}

FT_FaceRec_ *CFontFile::face() const
{
    return m_library ? m_library->face : nullptr;
}

const std::vector<uint8_t> &CFontFile::tables() const
{
    return m_library->bytes;
}

std::string CFontFile::open(const std::string &path)
{
    m_library.reset();
    std::vector<uint8_t> bytes;
    const std::string problem = readRegularFile(path, MaxBytes, bytes);
    if (problem.empty())
        return openBytes(std::move(bytes));
    const std::string named = path + ": ";
    return problem.compare(0, named.size(), named) == 0 ? problem.substr(named.size()) : problem;
}

std::string CFontFile::openBytes(std::vector<uint8_t> bytes)
{
    m_library.reset();
    if (bytes.size() > MaxBytes)
        return "is larger than " + std::to_string(MaxBytes) + " bytes";
    const uint32_t start = firstWord(bytes);
    if (!isFontStart(start))
        return "is no TrueType, OpenType or WOFF2 font";
    m_library = std::make_unique<SLibrary>();
    m_library->bytes = std::move(bytes);
    std::string problem = openTables();
    if (problem.empty() && start == Woff2) { // from here on like any other font
        FT_ULong length = 0;
        std::vector<uint8_t> tables;
        bool isWhole = FT_Load_Sfnt_Table(m_library->face, 0, 0, nullptr, &length) == 0;
        if (isWhole) {
            tables.resize(length);
            isWhole = FT_Load_Sfnt_Table(m_library->face, 0, 0, tables.data(), &length) == 0;
        }
        mendLastGlyph(tables);
        m_library = std::make_unique<SLibrary>();
        m_library->bytes = std::move(tables);
        const bool isUnpacked = isWhole && isFontStart(firstWord(m_library->bytes)) &&
                                firstWord(m_library->bytes) != Woff2;
        problem = isUnpacked ? openTables() : "is damaged";
    }
    if (!problem.empty())
        m_library.reset();
    return problem;
}

std::string CFontFile::openTables()
{
    constexpr int LeastUnits = 16; // of the em, as the format has them
    constexpr int MostUnits = 16384;
    SLibrary &library = *m_library;
    const FT_Error error =
        FT_New_Memory_Face(library.library, library.bytes.data(),
                           static_cast<FT_Long>(library.bytes.size()), 0, &library.face);
    if (error == FT_Err_Out_Of_Memory)
        return "needs more than " + std::to_string(MaxMemory >> 20) + " MiB of memory";
    if (error != 0)
        return "is damaged";
    const FT_Face face = library.face;
    if (!FT_IS_SFNT(face) || !FT_IS_SCALABLE(face))
        return "has no outlines";
    if (face->num_glyphs < 1 || face->num_glyphs > 65536)
        return "has no glyphs";
    if (face->units_per_EM < LeastUnits || face->units_per_EM > MostUnits)
        return "has an em of " + std::to_string(face->units_per_EM) + " units";
    return {};
}

} // namespace kivemu
