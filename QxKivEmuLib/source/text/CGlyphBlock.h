#pragma once

#include "CTypeface.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kivemu {

class CTextFaces;

/// Counts the work of what draws. True when there was too much of it, and nothing more should be
/// done.
class IWorkMeter
{
public:
    virtual ~IWorkMeter() = default;
    virtual bool add(uint64_t work) = 0;
};

/// The glyphs of one font at one turn that a frame uses. Masks stay from frame to frame; the
/// numbers are given anew in each, in the order of first use.
class CGlyphBlock
{
public:
    static constexpr int FullTurn = 360 * 64;

    /// `angle64`: clockwise, 0 to FullTurn - 1. The faces must outlive the block.
    CGlyphBlock(CTextFaces &faces, int bits, int angle64);

    int angle64() const { return m_angle64; }
    uint64_t lastFrame() const { return m_frame; }
    /// Forgets what the frame before used, the first time that a frame is named; true then.
    bool beginFrame(uint64_t frame);
    /// Parts of a frame are counted up. What was used in this part and later can be taken back.
    void setPart(uint64_t part) { m_part = part; }
    void takeBack(uint64_t part);
    /// As if the frame had not named the block at all.
    void leaveFrame()
    {
        takeBack(0);
        m_frame = 0;
    }
    /// The glyph's number in this frame's block. Nothing when it cannot be drawn (why() is not
    /// empty then), and when the meter says that it is enough.
    std::optional<uint16_t> use(uint32_t slot, IWorkMeter &meter);
    /// How far a glyph that was used moves the pen to the right, in 1/16 pixel, as the block has
    /// it.
    int advance16(uint32_t slot) const { return m_states[slot].advance16; }
    /// Why a glyph of this frame is left out; empty when none is.
    const std::string &why() const { return m_why; }
    void leaveOut(const std::string &why) { m_why = why; }

    size_t glyphCount() const { return m_order.size(); }
    size_t maskBytes() const { return m_maskBytes; }
    std::vector<uint8_t> bytes() const;

private:
    struct SState
    {
        uint64_t frame = 0;
        uint16_t number = 0;
        bool isDrawn = false;
        const char *fault = "";
        int16_t width = 0;
        int16_t height = 0;
        int advance16 = 0;
        int left = 0;
        int top = 0;
        std::vector<uint8_t> mask;
    };
    void draw(uint32_t slot, SState &state);

    CTextFaces &m_faces;
    int m_bits;
    int m_angle64;
    SGlyphTurn m_turn;
    double m_cosine;
    uint64_t m_frame = 0;
    std::string m_why;
    std::vector<SState> m_states; ///< by slot
    struct SUsed
    {
        uint32_t slot;
        uint64_t part;
    };
    std::vector<SUsed> m_order;
    uint64_t m_part = 0;
    size_t m_maskBytes = 0;
};

} // namespace kivemu
