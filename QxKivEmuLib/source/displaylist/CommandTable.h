#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

// The one table of display-list commands that assembler, disassembler, executor and the
// documentation share. Adding a command is adding a row here and its function in the executor.
//
// Encoding: little-endian 32-bit words. A command is a header word (opcode in the top 8 bits, a
// 24-bit operand below) and then as many operand words as its opcode fixes.

namespace kivemu {

/// How many states SAVE keeps, and how many vertices are gathered for one path.
constexpr size_t MaxSavedStates = 64;
constexpr size_t MaxVertices = 8192;

enum class EOpcode : uint8_t {
    End = 0x00,
    Clear = 0x01,
    Colour = 0x02,
    Alpha = 0x03,
    Blend = 0x04,
    LineWidth = 0x05,
    Scissor = 0x06,
    Save = 0x07,
    Restore = 0x08,
    Item = 0x09,
    Disc = 0x10,
    Line = 0x11,
    FillRect = 0x12,
    StrokeRect = 0x13,
    Vertex = 0x14,
    Polyline = 0x15,
    Polygon = 0x16,
    Arc = 0x17,
    Gradient = 0x18,
    Text = 0x19,
    Chars = 0x1A,
    Font = 0x1B,
    Glyph = 0x1C,
    BitmapSource = 0x20,
    BitmapLayout = 0x21,
    BitmapPalette = 0x22,
    BitmapTransform = 0x23,
    BitmapMode = 0x24,
    Bitmap = 0x25,
};

/// The header operand of BITMAP_MODE.
enum EBitmapModeBit : uint32_t {
    BitmapModeBilinear = 1,
    BitmapModeRepeatX = 2,
    BitmapModeRepeatY = 4,
};

/// Where an operand lies and how its text is written.
enum class EOperand : uint8_t {
    Header,        ///< the header's 24 bits, unsigned decimal
    HeaderColour,  ///< the header's 24 bits as 0xRRGGBB
    HeaderAddress, ///< the header's 24 bits, an address in RAM_G
    HeaderChars,   ///< up to three Latin-1 characters in the header, written "abc"; 0 is none
    HeaderLow16,   ///< the header's bits 15 to 0, unsigned decimal
    HeaderHigh8,   ///< the header's bits 23 to 16, signed decimal
    Word,          ///< a whole word, unsigned decimal
    WordAddress,   ///< a whole word, an address in RAM_G
    WordHex,       ///< a whole word as 0xAARRGGBB
    WordSigned,    ///< a whole word, signed decimal
    PairSigned,    ///< two signed 16-bit numbers in one word (low half first): two arguments
    PairUnsigned,  ///< two unsigned 16-bit numbers in one word (low half first): two arguments
};

constexpr uint32_t HeaderOperandMask = 0xFFFFFF;

/// Whether the operand takes a word of its own; otherwise it lies in the header.
constexpr bool isWordOperand(EOperand operand)
{
    return operand >= EOperand::Word;
}

constexpr bool isPairOperand(EOperand operand)
{
    return operand == EOperand::PairSigned || operand == EOperand::PairUnsigned;
}

constexpr uint32_t headerWord(EOpcode opcode, uint32_t operand)
{
    return static_cast<uint32_t>(opcode) << 24 | (operand & HeaderOperandMask);
}

/// One row of the table. Operand words lie in the order of the arguments; the header's operand may
/// be any of them.
struct SCommand
{
    EOpcode opcode;
    const char *name;                ///< as in the text form, e.g. "FILL_RECT"
    std::vector<EOperand> operands;  ///< in the order of the arguments
    std::vector<const char *> names; ///< one per argument, for the documentation
    const char *meaning;             ///< for the documentation
    /// The largest value of the header's 24 bits (0 for commands without a header operand); the
    /// executor refuses what lies above.
    uint32_t headerMax;

    /// Words after the header.
    size_t operandWords() const;
    bool hasHeaderOperand() const;
};

const std::vector<SCommand> &commandTable();
/// Null for an unknown opcode or name.
const SCommand *findCommand(uint8_t opcode);
const SCommand *findCommand(std::string_view name);

/// Words up to and with the first END, so that lists behind each other can be cut apart; `count`
/// when there is none. END's value within another command's operands does not count.
size_t listLength(const uint32_t *words, size_t count);

/// Calls `visit` with each command before the first END and the index of its header. Words that are
/// no command, and a command that is cut off, are passed over.
void walkCommands(const uint32_t *words, size_t count,
                  const std::function<void(const SCommand &, size_t)> &visit);

/// Puts another address in the place of each operand that is one in RAM_G. `address` is told the
/// command and the address that stands there, and gives the new one, of which a header keeps 24
/// bits.
void replaceAddresses(uint32_t *words, size_t count,
                      const std::function<uint32_t(EOpcode, uint32_t)> &address);

} // namespace kivemu
