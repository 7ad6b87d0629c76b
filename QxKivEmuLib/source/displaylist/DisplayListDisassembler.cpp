#include "CommandTable.h"
#include "DisplayListText.h"

#include <algorithm>
#include <charconv>

namespace kivemu {

namespace {

constexpr char HexDigits[] = "0123456789abcdef";

template<typename Number>
void addDecimal(std::string &text, Number value)
{
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, value);
    text.append(digits, end.ptr);
}

void addHexDigits(std::string &text, uint32_t value, int digits)
{
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += HexDigits[value >> shift & 15];
}

void addHex(std::string &text, uint32_t value, int digits)
{
    text += "0x";
    addHexDigits(text, value, digits);
}

/// Escapes all that would end the text, a command or a line, or that is not ASCII.
void addCharacter(std::string &text, uint32_t character)
{
    if (character >= 0x20 && character < 0x7F && character != '"' && character != ';' &&
        character != '\\') {
        text += static_cast<char>(character);
    } else {
        text += "\\x";
        addHexDigits(text, character, 2);
    }
}

void addCharacters(std::string &text, uint32_t operand)
{
    text += '"';
    for (uint32_t rest = operand; rest != 0; rest >>= 8)
        addCharacter(text, rest & 0xFF);
    text += '"';
}

void addWord(std::string &text, uint32_t word)
{
    text += "WORD(";
    addHex(text, word, 8);
    text += ");";
}

void addOperand(std::string &text, EOperand operand, uint32_t header, uint32_t word)
{
    switch (operand) {
    case EOperand::Header:
    case EOperand::HeaderAddress:
        addDecimal(text, header);
        break;
    case EOperand::HeaderColour:
        addHex(text, header, 6);
        break;
    case EOperand::HeaderChars:
        addCharacters(text, header);
        break;
    case EOperand::HeaderLow16:
        addDecimal(text, header & 0xFFFF);
        break;
    case EOperand::HeaderHigh8:
        addDecimal(text, static_cast<int8_t>(header >> 16 & 0xFF));
        break;
    case EOperand::Word:
    case EOperand::WordAddress:
        addDecimal(text, word);
        break;
    case EOperand::WordHex:
        addHex(text, word, 8);
        break;
    case EOperand::WordSigned:
        addDecimal(text, static_cast<int32_t>(word));
        break;
    case EOperand::PairSigned:
        addDecimal(text, static_cast<int16_t>(word & 0xFFFF));
        text += ", ";
        addDecimal(text, static_cast<int16_t>(word >> 16));
        break;
    case EOperand::PairUnsigned:
        addDecimal(text, word & 0xFFFF);
        text += ", ";
        addDecimal(text, word >> 16);
        break;
    }
}

void addCommand(std::string &text, const SCommand &command, const uint32_t *words)
{
    const uint32_t header = words[0] & HeaderOperandMask;
    const uint32_t *next = words + 1;
    text += command.name;
    text += '(';
    bool first = true;
    for (const EOperand operand : command.operands) {
        if (!first)
            text += ", ";
        first = false;
        addOperand(text, operand, header, isWordOperand(operand) ? *next++ : 0);
    }
    text += ");";
}

/// Whether the words at `words` can be written by name without losing a bit.
bool isWhole(const SCommand *command, const uint32_t *words, size_t count)
{
    return command && command->operandWords() < count &&
           (command->hasHeaderOperand() || (words[0] & HeaderOperandMask) == 0);
}

} // namespace

std::string disassemble(const uint32_t *words, size_t count)
{
    std::string text;
    text.reserve(count * 16);
    for (size_t i = 0; i < count;) {
        const SCommand *command = findCommand(static_cast<uint8_t>(words[i] >> 24));
        // A malformed command's operands stay words too: they are not commands of their own.
        const size_t length = std::min(count - i, 1 + (command ? command->operandWords() : 0));
        if (isWhole(command, words + i, count - i)) {
            addCommand(text, *command, words + i);
        } else {
            for (size_t k = 0; k < length; ++k)
                addWord(text, words[i + k]);
        }
        i += length;
    }
    return text;
}

std::vector<uint8_t> toBytes(const std::vector<uint32_t> &words)
{
    std::vector<uint8_t> bytes;
    bytes.reserve(words.size() * 4);
    for (const uint32_t word : words) {
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<uint8_t>(word >> shift & 0xFF));
    }
    return bytes;
}

std::vector<uint32_t> fromBytes(const uint8_t *bytes, size_t count)
{
    std::vector<uint32_t> words(count / 4);
    for (size_t i = 0; i < words.size(); ++i) {
        const uint8_t *byte = bytes + i * 4;
        words[i] = byte[0] | static_cast<uint32_t>(byte[1]) << 8 |
                   static_cast<uint32_t>(byte[2]) << 16 | static_cast<uint32_t>(byte[3]) << 24;
    }
    return words;
}

} // namespace kivemu
