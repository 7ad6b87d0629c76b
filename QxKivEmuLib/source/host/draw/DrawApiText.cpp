#include "DrawApi.h"
#include "RomFonts.h"
#include "host/items/CItemRunner.h"

namespace kivemu {

namespace {

constexpr size_t MaxText = 4096; ///< characters of one text; far more than any screen shows
constexpr char Ellipsis[] = "\xE2\x80\xA6";

int checkFont(lua_State *state, int argument)
{
    const lua_Integer font = luaL_checkinteger(state, argument);
    if (font < romfonts::FirstFont || font > romfonts::LastFont)
        luaL_error(state, "font %I is not one of 16 to 34", font);
    return static_cast<int>(font);
}

/// A text as Latin-1 characters in a buffer that needs no destructor.
class CLatin1
{
public:
    /// `missing` gets the characters that no font has.
    CLatin1(lua_State *state, int argument, std::u32string *missing = nullptr)
    {
        size_t length = 0;
        const char *utf8 = luaL_checklstring(state, argument, &length);
        if (length > 4 * MaxText)
            luaL_error(state, "the text is longer than %d characters", int{MaxText});
        contextOf(state).watchdog.charge(state, length * 4);
        m_length = romfonts::toLatin1({utf8, length}, missing).copy(m_characters, MaxText);
    }
    std::string_view view() const { return {m_characters, m_length}; }

private:
    char m_characters[MaxText];
    size_t m_length = 0;
};

/// From a text's pen to what is seen as its middle: that of its ink, but figures count with the
/// space about them, so that a reading stands still while they change.
double middleOf(int font, std::string_view latin1)
{
    double middle = romfonts::textWidth16(font, latin1) / 32.0;
    if (latin1.empty())
        return middle;
    const auto seen = [font](char character) {
        const auto *glyph = romfonts::glyph(font, static_cast<uint8_t>(character));
        const bool isFigure = character >= '0' && character <= '9';
        return isFigure || !glyph->coverage ? nullptr : glyph;
    };
    if (const romfonts::SGlyph *first = seen(latin1.front()))
        middle += first->left / 2.0;
    if (const romfonts::SGlyph *last = seen(latin1.back()))
        middle -= (last->advance16 / 16.0 - last->left - last->width) / 2.0;
    return middle;
}

int text(lua_State *state)
{
    static const char *const Horizontal[] = {"left", "center", "right", nullptr};
    static const char *const Vertical[] = {"baseline", "middle", "top", "bottom", nullptr};
    double x = checkNumber(state, 1);
    double y = checkNumber(state, 2);
    const int font = checkFont(state, 3);
    CItemRunner *items = contextOf(state).items;
    const CLatin1 latin1(state, 4, items ? &items->missingCharacters() : nullptr);
    const int align = luaL_checkoption(state, 5, "left", Horizontal);
    if (align == 1)
        x -= middleOf(font, latin1.view());
    else if (align == 2)
        x -= romfonts::textWidth16(font, latin1.view()) / 16.0;
    switch (luaL_checkoption(state, 6, "baseline", Vertical)) {
    case 1:
        y += romfonts::capHeight(font) / 2.0;
        break;
    case 2:
        y += romfonts::ascent(font);
        break;
    case 3:
        y -= romfonts::height(font) - romfonts::ascent(font);
        break;
    default:
        break;
    }
    drawingOf(state).text(x, y, font, latin1.view());
    return 0;
}

int textWidth(lua_State *state)
{
    const int font = checkFont(state, 1);
    const CLatin1 latin1(state, 2);
    lua_pushnumber(state, romfonts::textWidth16(font, latin1.view()) / 16.0);
    return 1;
}

/// Bytes of the UTF-8 character at `at`: a lead byte and what continues it.
size_t characterLength(const char *at)
{
    size_t length = 1;
    while ((at[length] & 0xC0) == 0x80 && length < 4)
        ++length;
    return length;
}

int textFit(lua_State *state)
{
    const int font = checkFont(state, 1);
    const CLatin1 latin1(state, 2);
    const double width16 = checkNumber(state, 3) * 16;
    if (romfonts::textWidth16(font, latin1.view()) <= width16) {
        lua_settop(state, 2);
        return 1;
    }
    constexpr uint64_t WorkPerCharacter = 16;
    contextOf(state).watchdog.charge(state, latin1.view().size() * WorkPerCharacter);
    const char *utf8 = lua_tostring(state, 2);
    const double room16 = width16 - romfonts::glyph(font, 0x85)->advance16;
    size_t kept = 0;
    int used16 = 0;
    while (utf8[kept] != '\0') {
        const size_t length = characterLength(utf8 + kept);
        used16 += romfonts::textWidth16(font, romfonts::toLatin1({utf8 + kept, length}));
        if (used16 > room16)
            break;
        kept += length;
    }
    while (kept > 0 && utf8[kept - 1] == ' ')
        --kept;
    lua_pushlstring(state, utf8, kept);
    lua_pushstring(state, room16 >= 0 ? Ellipsis : "");
    lua_concat(state, 2);
    return 1;
}

int fontHeight(lua_State *state)
{
    lua_pushinteger(state, romfonts::height(checkFont(state, 1)));
    return 1;
}

int fontAscent(lua_State *state)
{
    lua_pushinteger(state, romfonts::ascent(checkFont(state, 1)));
    return 1;
}

int fontCapHeight(lua_State *state)
{
    lua_pushinteger(state, romfonts::capHeight(checkFont(state, 1)));
    return 1;
}

} // namespace

const luaL_Reg DrawApiText[] = {
    {"text", text},
    {"text_width", textWidth},
    {"text_fit", textFit},
    {"font_height", fontHeight},
    {"font_ascent", fontAscent},
    {"font_cap_height", fontCapHeight},
    {nullptr, nullptr},
};

} // namespace kivemu
