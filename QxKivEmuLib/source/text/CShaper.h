#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct hb_buffer_t;

namespace kivemu {

class CTextFaces;
struct SParagraph;

/// A glyph of a line, and where it is drawn from: 1/64 pixels, x to the right of the line's start,
/// y upwards from its baseline.
struct SShapedGlyph
{
    uint32_t slot; ///< of the CTextFaces
    int32_t x;
    int32_t y;
};

/// One line of text as glyphs, from left to right as they are seen. Lengths are 1/64 pixels.
struct SShapedLine
{
    std::vector<SShapedGlyph> glyphs;
    int32_t width = 0;
    int32_t middle = 0; ///< of what is seen; figures count with the space about them
    bool isRightToLeft = false;
    std::u32string missing; ///< characters that no font has, each once
    /// What each code point moves the pen by; those that are one glyph with others count with the
    /// first of them.
    std::vector<int32_t> advances;
};

/// Turns pieces of paragraphs into glyphs. Threads: one at a time.
class CShaper
{
public:
    CShaper();
    ~CShaper();
    CShaper(const CShaper &) = delete;
    CShaper &operator=(const CShaper &) = delete;

    SShapedLine shape(const SParagraph &paragraph, size_t from, size_t to, CTextFaces &faces);

private:
    struct SRun
    {
        size_t from;
        size_t to;
        int8_t level;
    };
    static std::vector<SRun> runsOf(const SParagraph &paragraph, size_t from, size_t to);
    void shapeRun(const SParagraph &paragraph, const SRun &run, size_t lineStart, CTextFaces &faces,
                  SShapedLine &line);
    static void findMiddle(const SParagraph &paragraph, size_t from, size_t to,
                           const CTextFaces &faces, SShapedLine &line);

    hb_buffer_t *m_buffer;
    int64_t m_pen = 0;
};

} // namespace kivemu
