#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct FT_FaceRec_;

namespace kivemu {

/// A font file that is open. It has a FreeType library of its own, whose memory is bounded, so that
/// what one font does concerns no other.
/// Files:   regular ones; TrueType or CFF outlines as TTF, OTF, a collection's first font, or
/// WOFF2. Threads: one at a time.
class CFontFile
{
public:
    static constexpr size_t MaxBytes = size_t{16} << 20;
    static constexpr size_t MaxMemory = size_t{128} << 20; ///< of FreeType, for this font

    CFontFile();
    ~CFontFile();
    CFontFile(CFontFile &&) noexcept;
    CFontFile &operator=(CFontFile &&) noexcept;

    /// Both give the reason when they fail, without the file's name; otherwise an empty text.
    std::string open(const std::string &path);
    std::string openBytes(std::vector<uint8_t> bytes);

    bool isOpen() const;
    FT_FaceRec_ *face() const; ///< null unless it is open
    /// The font as tables, also of a WOFF2 file; valid as long as the object.
    const std::vector<uint8_t> &tables() const;

private:
    struct SLibrary;
    std::string openTables();
    std::unique_ptr<SLibrary> m_library;
};

} // namespace kivemu
