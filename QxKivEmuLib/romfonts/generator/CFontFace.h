#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

struct FT_FaceRec_;
struct FT_LibraryRec_;

/// One glyph as FreeType draws it: 8-bit coverage, rows without padding.
struct SDrawnGlyph
{
    int width = 0;
    int height = 0;
    int left = 0;
    int top = 0;
    int advance16 = 0;
    std::vector<uint8_t> coverage;
};

/// A font file at one size at a time. Failures are exceptions: the build stops there.
class CFontFace
{
public:
    explicit CFontFace(const std::string &file);
    ~CFontFace();
    CFontFace(const CFontFace &) = delete;
    CFontFace &operator=(const CFontFace &) = delete;

    /// Takes the largest em size in whole pixels whose ascent and descent, each rounded, fit into
    /// the line height.
    void fitLineHeight(int height);
    int emSize() const { return m_emSize; }
    int ascent() const;
    int capHeight() const;
    /// The advance is a whole number of pixels, since the chip puts glyphs on whole pixels and
    /// fractions would show as uneven gaps.
    SDrawnGlyph draw(char32_t codePoint) const;

private:
    int scaled(int fontUnits) const;

    FT_LibraryRec_ *m_library = nullptr;
    FT_FaceRec_ *m_face = nullptr;
    int m_emSize = 0;
};
