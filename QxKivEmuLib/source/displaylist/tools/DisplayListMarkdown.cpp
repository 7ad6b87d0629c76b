#include "DisplayListMarkdown.h"

#include "displaylist/CommandTable.h"

#include <cstdio>

namespace kivemu {

namespace {

constexpr char Introduction[] = R"(# The display list

What the chip executes to draw one frame: a sequence of little-endian 32-bit words in RAM_DL.

A command is one header word, the opcode in its top 8 bits and a 24-bit operand below, followed by
as many operand words as its opcode fixes. Where a command has no operand in the header, the 24 bits
are zero.

- Coordinates and lengths are sixteenths of a pixel. The pixel in the top left corner reaches from 0
  to 16 both ways, its centre is (8, 8); x grows to the right, y downwards.
- Two numbers share a word as 16-bit halves, the first in the low half: x below y, width below
  height. Coordinates are signed (-2048 to 2047.9375 pixels), sizes unsigned.
- Angles are 1/64 degree, clockwise from three o'clock.
- Colours are 0xRRGGBB, in words of their own 0xAARRGGBB, not multiplied by alpha.

A frame starts black, with the state that the commands below name. A malformed command (unknown
opcode, operand out of range, operand words missing, address outside RAM_G) is reported and skipped.

The text form writes each command as `NAME(argument, argument);`, all on one line; exported files have
one command a line. Numbers are decimal or hexadecimal (`0x`). Characters outside printable ASCII,
and `"`, `;` and `\`, are written `\xNN`. A word that is no command is written `WORD(0xNNNNNNNN);`. Text and
bytes turn into each other without loss.

## Commands

| opcode | text | words | does |
|---|---|---|---|
)";

constexpr char EncodingTitle[] = R"(
## Encoding

Word 0 is the header; its bits 31 to 24 are the opcode.

| command | argument | lies in | as |
|---|---|---|---|
)";

constexpr char FontBlocks[] = R"(
## Font blocks

What FONT binds: the masks of a font's glyphs, with their metrics. A block starts at a multiple of 4;
its numbers are little-endian.

| byte | size | holds |
|---|---|---|
| 0 | 4 | bits of a texel: 1, 2, 4 or 8 |
| 4 | 4 | number of glyphs, 1 to 65536 |
| 8 | 16 each | the glyphs, GLYPH's number 0 first |
| | | masks: rows from top to bottom, without gaps |

| byte of a glyph | size | holds |
|---|---|---|
| 0 | 4 | where its mask lies, from the block's start; 0 without a mask |
| 4 | 2 | width of the mask in texels, at most 512; 0 without a mask |
| 6 | 2 | height of the mask, as the width |
| 8 | 2, signed | pixels from the pen to the mask's left column |
| 10 | 2, signed | pixels from the baseline up to the mask's top row |
| 12 | 2, signed | how far the pen moves to the right, in 1/16 pixel |
| 14 | 2 | 0 |

A row takes ceil(width x bits / 8) bytes, the leftmost texel in the highest bits. A texel of b bits and
value v covers v x 255 / (2^b - 1) of 255: COLOR and ALPHA are laid on with this share, as for CHARS.

A glyph is drawn with the mask's left column `left` pixels right of the pen and its top row `top` pixels
above the baseline. TEXT takes what its handle means then. A FONT without a block at its address and a
TEXT whose handle is not bound are reported, and the glyphs that follow are left out; so is a glyph
that the block lacks or whose mask reaches beyond the memory in use, and it does not move the pen.
)";

std::string hexByte(EOpcode opcode)
{
    char text[8];
    std::snprintf(text, sizeof text, "0x%02X", static_cast<unsigned>(opcode));
    return text;
}

std::string signature(const SCommand &command)
{
    std::string text = std::string(command.name) + "(";
    for (size_t i = 0; i < command.names.size(); ++i)
        text += (i > 0 ? ", " : "") + std::string(command.names[i]);
    return text + ")";
}

const char *headerFormat(EOperand operand)
{
    switch (operand) {
    case EOperand::HeaderColour:
        return "0xRRGGBB";
    case EOperand::HeaderChars:
        return "three characters, the first in bits 7 to 0; 0 is none";
    case EOperand::HeaderLow16:
        return "unsigned";
    case EOperand::HeaderHigh8:
        return "signed";
    default:
        return "unsigned, ";
    }
}

const char *headerPlace(EOperand operand)
{
    switch (operand) {
    case EOperand::HeaderLow16:
        return "word 0, bits 15 to 0";
    case EOperand::HeaderHigh8:
        return "word 0, bits 23 to 16";
    default:
        return "word 0, bits 23 to 0";
    }
}

const char *wordFormat(EOperand operand)
{
    switch (operand) {
    case EOperand::WordHex:
        return "0xAARRGGBB";
    case EOperand::WordSigned:
    case EOperand::PairSigned:
        return "signed";
    default:
        return "unsigned";
    }
}

void addEncoding(std::string &page, const SCommand &command)
{
    size_t argument = 0;
    size_t word = 0;
    const auto row = [&](const std::string &place, const std::string &format) {
        page += "| " + std::string(command.name) + " | " + command.names[argument++] + " | " +
                place + " | " + format + " |\n";
    };
    for (const EOperand operand : command.operands) {
        if (!isWordOperand(operand)) {
            const std::string format = headerFormat(operand);
            const bool isNumber = operand == EOperand::Header || operand == EOperand::HeaderAddress;
            row(headerPlace(operand),
                isNumber ? format + "0 to " + std::to_string(command.headerMax) : format);
            continue;
        }
        const std::string place = "word " + std::to_string(++word);
        if (isPairOperand(operand)) {
            row(place + ", bits 15 to 0", wordFormat(operand));
            row(place + ", bits 31 to 16", wordFormat(operand));
        } else {
            row(place, wordFormat(operand));
        }
    }
}

} // namespace

std::string displayListMarkdown()
{
    std::string page = Introduction;
    for (const SCommand &command : commandTable()) {
        page += "| " + hexByte(command.opcode) + " | `" + signature(command) + "` | " +
                std::to_string(1 + command.operandWords()) + " | " + command.meaning + " |\n";
    }
    page += EncodingTitle;
    for (const SCommand &command : commandTable())
        addEncoding(page, command);
    page += FontBlocks;
    return page;
}

} // namespace kivemu
