#include "CommandTable.h"
#include "FontBlock.h"

#include <algorithm>
#include <array>

namespace kivemu {

namespace {

constexpr uint32_t Any24 = HeaderOperandMask;
constexpr uint32_t Any16 = 0xFFFF;

std::vector<SCommand> makeTable()
{
    using E = EOperand;
    using O = EOpcode;
    return {
        {O::End, "END", {}, {}, "Ends the list. Words behind it are not executed.", 0},
        {O::Clear,
         "CLEAR",
         {E::HeaderColour},
         {"colour"},
         "Fills the scissor rectangle with an opaque colour.",
         Any24},
        {O::Colour,
         "COLOR",
         {E::HeaderColour},
         {"colour"},
         "Colour of what follows. White at the start.",
         Any24},
        {O::Alpha,
         "ALPHA",
         {E::Header},
         {"alpha"},
         "Opacity of what follows, 0 (invisible) to 255 (opaque). 255 at the start.",
         255},
        {O::Blend,
         "BLEND",
         {E::Header},
         {"on"},
         "1: what follows is mixed with what is there by its alpha. 0: it replaces what is there "
         "as "
         "if it were opaque; edges stay smooth. 1 at the start.",
         1},
        {O::LineWidth,
         "LINE_WIDTH",
         {E::Header},
         {"width"},
         "Width of lines and outlines, in 1/16 pixel. 16 at the start.",
         Any16},
        {O::Scissor,
         "SCISSOR",
         {E::PairSigned, E::PairUnsigned},
         {"x", "y", "width", "height"},
         "Limits drawing to a rectangle, in whole pixels. The frame at the start.",
         0},
        {O::Save,
         "SAVE",
         {},
         {},
         "Keeps colour, alpha, blend, line width and scissor. At most 64 states are kept.",
         0},
        {O::Restore, "RESTORE", {}, {}, "Brings the state of the last SAVE back.", 0},
        {O::Item,
         "ITEM",
         {E::Word},
         {"id"},
         "Names the item that the following commands draw. Draws nothing; a path gathered before "
         "is given up.",
         0},
        {O::Disc,
         "DISC",
         {E::PairSigned, E::Header},
         {"x", "y", "radius"},
         "A filled circle.",
         Any16},
        {O::Line,
         "LINE",
         {E::PairSigned, E::PairSigned},
         {"x0", "y0", "x1", "y1"},
         "A line with round ends.",
         0},
        {O::FillRect,
         "FILL_RECT",
         {E::PairSigned, E::PairUnsigned, E::Header},
         {"x", "y", "width", "height", "radius"},
         "A filled rectangle with rounded corners; the radius is cut to half the shorter side.",
         Any16},
        {O::StrokeRect,
         "STROKE_RECT",
         {E::PairSigned, E::PairUnsigned, E::Header},
         {"x", "y", "width", "height", "radius"},
         "The outline of such a rectangle, the middle of the stroke on its edge.",
         Any16},
        {O::Vertex,
         "VERTEX",
         {E::PairSigned},
         {"x", "y"},
         "Adds a point to the path that POLYLINE or POLYGON draws. At most 8192 points.",
         0},
        {O::Polyline,
         "POLYLINE",
         {E::Header},
         {"closed"},
         "Draws a line with round joins and ends through the gathered points, as one shape; 1 "
         "closes it. Empties the path.",
         1},
        {O::Polygon,
         "POLYGON",
         {},
         {},
         "Fills the gathered points by the even-odd rule. Empties the path.",
         0},
        {O::Arc,
         "ARC",
         {E::PairSigned, E::Word, E::PairSigned, E::Header},
         {"x", "y", "radius", "start", "sweep", "caps"},
         "A piece of a circle's outline, in 1/64 degree clockwise from three o'clock. Its ends are "
         "round (caps 0) or cut (caps 1). The radius is at most 65535.",
         1},
        {O::Gradient,
         "GRADIENT",
         {E::PairSigned, E::PairUnsigned, E::PairUnsigned, E::WordHex, E::WordHex},
         {"x", "y", "width", "height", "radius", "angle", "from", "to"},
         "A rounded rectangle filled from one colour to another along an angle in 1/64 degree (0: "
         "left to right, 5760: top to bottom). COLOR and ALPHA do not count.",
         0},
        {O::Text,
         "TEXT",
         {E::PairSigned, E::Header},
         {"x", "y", "font"},
         "Puts the pen (on the baseline) for what follows and chooses its font: for CHARS a ROM "
         "font, 16 to 34; for GLYPH a handle that FONT has bound, 0 to 15.",
         255},
        {O::Chars,
         "CHARS",
         {E::HeaderChars},
         {"characters"},
         "Draws up to three Latin-1 characters, the first in the lowest byte, at the pen rounded "
         "to whole pixels. The pen moves on by each one's advance, in 1/16 pixel.",
         Any24},
        {O::Font,
         "FONT",
         {E::Header, E::WordAddress},
         {"handle", "address"},
         "From now on the handle, 0 to 15, means the font block at this address in RAM_G. No "
         "handle is bound at the start, and RESTORE unbinds none.",
         FontHandles - 1},
        {O::Glyph,
         "GLYPH",
         {E::HeaderLow16, E::HeaderHigh8},
         {"number", "shift"},
         "Draws the glyph of that number in the font block, at the pen rounded to whole pixels. "
         "The pen moves on by the glyph's advance and the shift, in 1/16 pixel.",
         Any24},
        {O::BitmapSource,
         "BITMAP_SOURCE",
         {E::Header, E::WordAddress},
         {"format", "address"},
         "Code of the bitmap format, and where in RAM_G the texels lie.",
         Any24},
        {O::BitmapLayout,
         "BITMAP_LAYOUT",
         {E::Word, E::PairUnsigned},
         {"stride", "width", "height"},
         "Bytes from row to row, and the size in texels.",
         0},
        {O::BitmapPalette,
         "BITMAP_PALETTE",
         {E::HeaderAddress},
         {"address"},
         "Where in RAM_G the palette lies, for formats with one.",
         Any24},
        {O::BitmapTransform,
         "BITMAP_TRANSFORM",
         {E::WordSigned, E::WordSigned, E::WordSigned, E::WordSigned, E::WordSigned, E::WordSigned},
         {"a", "b", "c", "d", "e", "f"},
         "Which texel a pixel shows: (a x + b y + c, d x + e y + f), all in 1/65536, where (x, y) "
         "is the pixel's centre from the top left of BITMAP. One to one at the start.",
         0},
        {O::BitmapMode,
         "BITMAP_MODE",
         {E::Header},
         {"bits"},
         "Bit 0: bilinear instead of nearest. Bit 1: repeat in x, bit 2: in y; otherwise the "
         "outside is transparent. 0 at the start.",
         BitmapModeBilinear | BitmapModeRepeatX | BitmapModeRepeatY},
        {O::Bitmap,
         "BITMAP",
         {E::PairSigned, E::PairUnsigned},
         {"x", "y", "width", "height"},
         "Draws the bitmap into a rectangle, multiplied by COLOR and ALPHA.",
         0},
    };
}

} // namespace

size_t SCommand::operandWords() const
{
    return static_cast<size_t>(std::count_if(operands.begin(), operands.end(), isWordOperand));
}

bool SCommand::hasHeaderOperand() const
{
    return operandWords() < operands.size();
}

const std::vector<SCommand> &commandTable()
{
    // Never destroyed: at the end of the process a worker may still read it.
    static const std::vector<SCommand> &table = *new std::vector<SCommand>(makeTable());
    return table;
}

const SCommand *findCommand(uint8_t opcode)
{
    static const auto byOpcode = [] {
        std::array<const SCommand *, 256> rows{};
        for (const SCommand &command : commandTable())
            rows[static_cast<size_t>(command.opcode)] = &command;
        return rows;
    }();
    return byOpcode[opcode];
}

const SCommand *findCommand(std::string_view name)
{
    const auto &table = commandTable();
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const SCommand &command) { return name == command.name; });
    return found == table.end() ? nullptr : &*found;
}

namespace {

/// Calls `visit` with each whole command before the first END and the index of its header; gives
/// the length as listLength().
template<typename Visit>
size_t walk(const uint32_t *words, size_t count, Visit visit)
{
    for (size_t i = 0; i < count;) {
        const SCommand *command = findCommand(static_cast<uint8_t>(words[i] >> 24));
        const size_t length = 1 + (command ? command->operandWords() : 0);
        if (command && command->opcode == EOpcode::End)
            return i + 1;
        if (length > count - i)
            return count;
        if (command)
            visit(*command, i);
        i += length;
    }
    return count;
}

} // namespace

size_t listLength(const uint32_t *words, size_t count)
{
    return walk(words, count, [](const SCommand &, size_t) {});
}

void walkCommands(const uint32_t *words, size_t count,
                  const std::function<void(const SCommand &, size_t)> &visit)
{
    walk(words, count, visit);
}

void replaceAddresses(uint32_t *words, size_t count,
                      const std::function<uint32_t(EOpcode, uint32_t)> &address)
{
    walk(words, count, [&](const SCommand &command, size_t header) {
        size_t word = header;
        for (const EOperand operand : command.operands) {
            word += isWordOperand(operand) ? 1 : 0;
            if (operand == EOperand::WordAddress)
                words[word] = address(command.opcode, words[word]);
            else if (operand == EOperand::HeaderAddress)
                words[header] = headerWord(
                    command.opcode, address(command.opcode, words[header] & HeaderOperandMask));
        }
    });
}

} // namespace kivemu
