#pragma once

#include "CTextFont.h"
#include "pictures/FileReading.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kivemu {

/// The fonts of a project as a frame uses them. Files are read again only when they have changed;
/// equal input gives equal glyphs and blocks, whatever was drawn before.
/// Threads: one at a time.
class CTexts
{
public:
    static constexpr int Handles = 16;

    CTexts();
    ~CTexts();

    /// `fonts`: see parseFontTable(). Relative files are taken from the working directory.
    void beginFrame(std::string_view fonts, std::string_view workingDirectory);

    static bool isHandle(int64_t font) { return font >= 0 && font < Handles; }
    /// Null when the font cannot be used; the frame's messages then say why.
    CTextFont *font(int handle);
    /// The ROM font that is drawn in place of one that cannot be used.
    int romFont(int handle) const;

    /// A block of this frame, and the number that stands for its address until it has one.
    CGlyphBlock &block(CTextFont &font, double degrees, uint32_t &number);

    /// What the frame uses so far.
    struct SMark
    {
        size_t blocks;
        uint64_t part;
    };
    SMark mark() { return {m_used.size(), ++m_part}; }
    /// As if the frame had not used what it did since.
    void takeBack(const SMark &mark);

    /// One block of the frame, in the order of their numbers.
    struct SBlock
    {
        std::string file;
        uint32_t turn; ///< differs for each handle and angle
        std::vector<uint8_t> bytes;
    };
    /// Ends the frame.
    std::vector<SBlock> finish();
    /// A place for a text that Lua is about to copy, since its errors pass over destructors.
    std::string &kept() { return m_kept; }
    /// What is wrong with the frame's fonts; to be asked for after finish().
    const std::vector<std::string> &messages() const { return m_messages; }

private:
    struct SFile;
    struct SHandle
    {
        SFontLine line;
        bool isKnown = false;
        uint64_t frame = 0; ///< in which it was looked up last
        std::string problem;
        std::vector<std::shared_ptr<CTypeface>> typefaces;
        std::unique_ptr<CTextFont> font;
    };
    struct SUsed
    {
        CTextFont *font;
        CGlyphBlock *block;
    };
    void readTable(std::string_view fonts);
    void lookUp(int handle);
    std::shared_ptr<CTypeface> typeface(const SFontLine &line, std::string &problem);
    std::string resolved(const std::string &file) const;
    static std::string label(const SFontLine &line);

    std::string m_table;
    std::string m_workingDirectory;
    std::vector<std::string> m_tableProblems;
    STextTools m_tools;
    std::array<SHandle, Handles> m_handles;
    std::map<std::string, SFile> m_files; ///< by path and axes
    std::vector<SUsed> m_used;            ///< in the order of their numbers
    std::vector<std::string> m_messages;
    std::string m_kept;
    uint64_t m_frame = 0;
    uint64_t m_part = 0; ///< of the frame; counted on over all frames
};

} // namespace kivemu
