#include "CommandTable.h"
#include "DisplayListText.h"

#include <limits>
#include <utility>

namespace kivemu {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool isNameCharacter(char c)
{
    return (c >= 'A' && c <= 'Z') || c == '_';
}

/// The value of a digit in base 10 or 16, or -1.
int digitValue(char c, int base)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (base == 16 && c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (base == 16 && c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/// Reads one text from front to back. A function that gives false has left its message.
class CAssembler
{
public:
    explicit CAssembler(std::string_view text) : m_text(text) {}

    bool run();
    std::vector<uint32_t> takeWords() { return std::move(m_words); }
    const std::string &message() const { return m_message; }

private:
    bool statement();
    bool commandArguments(const SCommand &command);
    bool operand(EOperand operand, uint32_t &value);
    bool pair(int64_t low, int64_t high, uint32_t &value);
    bool number(int64_t low, int64_t high, uint32_t &value);
    bool digits(int base, int64_t &value);
    bool characters(uint32_t &value);
    bool character(uint32_t &value);
    bool expect(char c);

    bool atEnd() const { return m_pos == m_text.size(); }
    bool next(char c) const { return !atEnd() && m_text[m_pos] == c; }
    void skipBlanks();
    bool fail(const std::string &message);

    std::string_view m_text;
    size_t m_pos = 0;
    size_t m_line = 1;
    std::string m_message;
    std::vector<uint32_t> m_words;
};

bool CAssembler::run()
{
    for (skipBlanks(); !atEnd(); skipBlanks()) {
        if (!statement())
            return false;
    }
    return true;
}

bool CAssembler::statement()
{
    const size_t start = m_pos;
    while (!atEnd() && isNameCharacter(m_text[m_pos]))
        ++m_pos;
    const std::string_view name = m_text.substr(start, m_pos - start);
    if (name.empty())
        return fail("a command's name is expected");

    uint32_t word = 0;
    const SCommand *command = findCommand(name);
    if (!command && name != "WORD")
        return fail("unknown command " + std::string(name.substr(0, 40)));
    if (!expect('('))
        return false;
    if (command) {
        if (!commandArguments(*command))
            return false;
    } else {
        if (!number(0, std::numeric_limits<uint32_t>::max(), word))
            return false;
        m_words.push_back(word);
    }
    return expect(')') && expect(';');
}

bool CAssembler::commandArguments(const SCommand &command)
{
    const size_t header = m_words.size();
    m_words.push_back(headerWord(command.opcode, 0));
    bool first = true;
    for (const EOperand kind : command.operands) {
        uint32_t value = 0;
        if ((!first && !expect(',')) || !operand(kind, value))
            return false;
        first = false;
        if (isWordOperand(kind))
            m_words.push_back(value);
        else
            m_words[header] |= value;
    }
    return true;
}

bool CAssembler::operand(EOperand operand, uint32_t &value)
{
    switch (operand) {
    case EOperand::Header:
    case EOperand::HeaderAddress:
    case EOperand::HeaderColour:
        return number(0, HeaderOperandMask, value);
    case EOperand::HeaderChars:
        return characters(value);
    case EOperand::HeaderLow16:
        return number(0, std::numeric_limits<uint16_t>::max(), value);
    case EOperand::HeaderHigh8:
        if (!number(std::numeric_limits<int8_t>::min(), std::numeric_limits<int8_t>::max(), value))
            return false;
        value = (value & 0xFF) << 16;
        return true;
    case EOperand::Word:
    case EOperand::WordAddress:
    case EOperand::WordHex:
        return number(0, std::numeric_limits<uint32_t>::max(), value);
    case EOperand::WordSigned:
        return number(std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max(),
                      value);
    case EOperand::PairSigned:
        return pair(std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max(),
                    value);
    case EOperand::PairUnsigned:
        return pair(0, std::numeric_limits<uint16_t>::max(), value);
    }
    return false;
}

bool CAssembler::pair(int64_t low, int64_t high, uint32_t &value)
{
    uint32_t second = 0;
    if (!number(low, high, value) || !expect(',') || !number(low, high, second))
        return false;
    value = (value & 0xFFFF) | second << 16;
    return true;
}

/// Decimal, or hexadecimal after "0x", with an optional "-"; negative numbers as two's complement.
bool CAssembler::number(int64_t low, int64_t high, uint32_t &value)
{
    skipBlanks();
    const bool negative = next('-');
    if (negative)
        ++m_pos;
    int base = 10;
    if (m_text.substr(m_pos, 2) == "0x") {
        base = 16;
        m_pos += 2;
    }
    int64_t magnitude = 0;
    if (!digits(base, magnitude))
        return false;
    const int64_t number = negative ? -magnitude : magnitude;
    if (number < low || number > high)
        return fail("a number from " + std::to_string(low) + " to " + std::to_string(high) +
                    " is expected");
    value = static_cast<uint32_t>(number);
    return true;
}

bool CAssembler::digits(int base, int64_t &value)
{
    const size_t start = m_pos;
    for (; !atEnd() && digitValue(m_text[m_pos], base) >= 0; ++m_pos) {
        value = value * base + digitValue(m_text[m_pos], base);
        if (value > std::numeric_limits<uint32_t>::max())
            return fail("the number is too large");
    }
    return m_pos > start || fail("a number is expected");
}

bool CAssembler::characters(uint32_t &value)
{
    if (!expect('"'))
        return false;
    for (int shift = 0; !next('"'); shift += 8) {
        uint32_t one = 0;
        if (shift == 24)
            return fail("at most three characters are expected");
        if (!character(one))
            return false;
        value |= one << shift;
    }
    ++m_pos;
    return true;
}

/// A printable ASCII character as it stands, any other as \xNN.
bool CAssembler::character(uint32_t &value)
{
    if (atEnd() || m_text[m_pos] < 0x20 || m_text[m_pos] > 0x7E || m_text[m_pos] == ';')
        return fail("the text is not closed or has a character that must be written \\xNN");
    if (m_text[m_pos] != '\\') {
        value = static_cast<uint8_t>(m_text[m_pos++]);
        return true;
    }
    const std::string_view escape = m_text.substr(m_pos, 4);
    const int high = escape.size() == 4 ? digitValue(escape[2], 16) : -1;
    const int low = escape.size() == 4 ? digitValue(escape[3], 16) : -1;
    if (high < 0 || low < 0 || escape[1] != 'x')
        return fail("\\ must be followed by x and two hexadecimal digits");
    value = static_cast<uint32_t>(high * 16 + low);
    m_pos += 4;
    return true;
}

bool CAssembler::expect(char c)
{
    skipBlanks();
    if (!next(c))
        return fail(std::string("\"") + c + "\" is expected");
    ++m_pos;
    return true;
}

void CAssembler::skipBlanks()
{
    for (; !atEnd() && isBlank(m_text[m_pos]); ++m_pos)
        m_line += m_text[m_pos] == '\n';
}

bool CAssembler::fail(const std::string &message)
{
    m_message = "line " + std::to_string(m_line) + ": " + message;
    return false;
}

} // namespace

std::optional<std::vector<uint32_t>> assemble(std::string_view text, std::string *error)
{
    CAssembler assembler(text);
    if (!assembler.run()) {
        if (error)
            *error = assembler.message();
        return std::nullopt;
    }
    return assembler.takeWords();
}

} // namespace kivemu
