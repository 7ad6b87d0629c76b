#include "Utf8.h"

namespace kivemu {

namespace {

constexpr char32_t Malformed = 0xFFFD;

/// The code point at the start of a text and its bytes.
char32_t decode(std::string_view text, size_t &length)
{
    const auto byte = [&](size_t i) { return static_cast<uint8_t>(text[i]); };
    const uint8_t lead = byte(0);
    length = 1;
    if (lead < 0x80)
        return lead;
    const size_t whole = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < whole)
        return Malformed;
    char32_t c = lead & (0x7FU >> whole);
    for (size_t i = 1; i < whole; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return Malformed;
        c = c << 6 | (byte(i) & 0x3FU);
    }
    const bool isOverlong = (whole == 3 && c < 0x800) || (whole == 4 && c < 0x10000);
    if (isOverlong || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
        return Malformed;
    length = whole;
    return c;
}

} // namespace

SDecodedText decodeUtf8(std::string_view utf8, size_t most)
{
    SDecodedText decoded;
    decoded.text.reserve(utf8.size());
    decoded.offsets.reserve(utf8.size() + 1);
    uint32_t offset = 0;
    while (offset < utf8.size() && decoded.text.size() < most) {
        size_t length = 0;
        const char32_t c = decode(utf8.substr(offset), length);
        const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
        decoded.text += isControl ? U' ' : c;
        decoded.offsets.push_back(offset);
        offset += static_cast<uint32_t>(length);
    }
    decoded.offsets.push_back(offset);
    return decoded;
}

} // namespace kivemu
