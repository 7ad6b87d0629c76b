#include "Paragraph.h"

#include "CTextBreaks.h"
#include "CTextFaces.h"

#include <algorithm>
#include <fribidi.h>
#include <hb.h>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>

namespace kivemu {

namespace {

void findLevels(SParagraph &paragraph)
{
    constexpr char32_t FirstRightToLeft = 0x590;
    const std::u32string &text = paragraph.text();
    paragraph.levels.assign(text.size(), 0);
    if (std::all_of(text.begin(), text.end(), [](char32_t c) { return c < FirstRightToLeft; }))
        return;
    const auto count = static_cast<FriBidiStrIndex>(text.size());
    const std::vector<FriBidiChar> characters(text.begin(), text.end());
    std::vector<FriBidiBracketType> brackets(text.size());
    paragraph.types.resize(text.size());
    fribidi_get_bidi_types(characters.data(), count, paragraph.types.data());
    fribidi_get_bracket_types(characters.data(), count, paragraph.types.data(), brackets.data());
    FriBidiParType direction = FRIBIDI_PAR_ON;
    const FriBidiLevel highest = fribidi_get_par_embedding_levels_ex(
        paragraph.types.data(), brackets.data(), count, &direction, paragraph.levels.data());
    if (highest == 0) // no memory
        paragraph.levels.assign(text.size(), 0);
    paragraph.isRightToLeft = highest != 0 && FRIBIDI_IS_RTL(direction);
}

/// Signs that all scripts share belong to the script before them, at the start to the one after.
void findScripts(SParagraph &paragraph)
{
    hb_unicode_funcs_t *unicode = hb_unicode_funcs_get_default();
    std::vector<uint32_t> &scripts = paragraph.scripts;
    scripts.reserve(paragraph.text().size());
    uint32_t before = HB_SCRIPT_COMMON;
    for (const char32_t c : paragraph.text()) {
        const uint32_t own = hb_unicode_script(unicode, c);
        const bool isShared =
            own == HB_SCRIPT_COMMON || own == HB_SCRIPT_INHERITED || own == HB_SCRIPT_UNKNOWN;
        if (!isShared && before == HB_SCRIPT_COMMON)
            std::fill(scripts.begin(), scripts.end(), own);
        before = isShared ? before : own;
        scripts.push_back(before);
    }
}

bool isIgnorable(char32_t c)
{
    return u_hasBinaryProperty(static_cast<UChar32>(c), UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

bool hasAll(const CTextFaces &faces, size_t face, std::u32string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [&](char32_t c) { return faces.has(face, c) || isIgnorable(c); });
}

/// A cluster in another spelling, composed or taken apart.
std::u32string normalised(std::u32string_view cluster, bool isComposed)
{
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2 *form =
        isComposed ? unorm2_getNFCInstance(&status) : unorm2_getNFDInstance(&status);
    std::u16string units;
    for (const char32_t c : cluster) {
        if (c >= 0x10000)
            units += static_cast<char16_t>(0xD7C0 + (c >> 10));
        units += static_cast<char16_t>(c >= 0x10000 ? 0xDC00 + (c & 0x3FF) : c);
    }
    std::u16string result(units.size() * 4 + 16, u'\0');
    if (U_FAILURE(status))
        return {};
    const int32_t length =
        unorm2_normalize(form, units.data(), static_cast<int32_t>(units.size()), result.data(),
                         static_cast<int32_t>(result.size()), &status);
    if (U_FAILURE(status))
        return {};
    std::u32string text;
    for (int32_t at = 0; at < length; ++at) {
        const char16_t unit = result[static_cast<size_t>(at)];
        if (U16_IS_LEAD(unit) && at + 1 < length)
            text += static_cast<char32_t>(
                U16_GET_SUPPLEMENTARY(unit, result[static_cast<size_t>(++at)]));
        else
            text += unit;
    }
    return text;
}

/// A font for a whole cluster: the first that has all of it in some spelling, else the first that
/// has what it starts with.
uint16_t faceOf(const CTextFaces &faces, std::u32string_view cluster)
{
    const auto first = [&](const auto &isRight) {
        size_t face = 0;
        while (face < faces.count() && !isRight(face))
            ++face;
        return face;
    };
    size_t face = first([&](size_t f) { return hasAll(faces, f, cluster); });
    if (face == faces.count()) {
        const std::u32string composed = normalised(cluster, true);
        const std::u32string apart = normalised(cluster, false);
        face = first([&](size_t f) {
            return (!composed.empty() && hasAll(faces, f, composed)) ||
                   (!apart.empty() && hasAll(faces, f, apart));
        });
    }
    if (face == faces.count())
        face = first([&](size_t f) { return faces.has(f, cluster[0]); });
    return face == faces.count() ? uint16_t{0} : static_cast<uint16_t>(face);
}

void findFaces(SParagraph &paragraph, const CTextFaces &faces, CTextBreaks &breaks)
{
    const std::u32string &text = paragraph.text();
    paragraph.faces.assign(text.size(), 0);
    if (faces.count() == 1 || hasAll(faces, 0, text))
        return;
    const std::vector<bool> ends = breaks.clusters(text);
    for (size_t from = 0; from < text.size();) {
        size_t to = from + 1;
        while (to < text.size() && !ends[to])
            ++to;
        const uint16_t face = faceOf(faces, std::u32string_view(text).substr(from, to - from));
        std::fill(paragraph.faces.begin() + static_cast<std::ptrdiff_t>(from),
                  paragraph.faces.begin() + static_cast<std::ptrdiff_t>(to), face);
        from = to;
    }
}

} // namespace

SParagraph makeParagraph(SDecodedText decoded, const CTextFaces &faces, CTextBreaks &breaks)
{
    SParagraph paragraph;
    paragraph.decoded = std::move(decoded);
    findLevels(paragraph);
    findScripts(paragraph);
    findFaces(paragraph, faces, breaks);
    return paragraph;
}

} // namespace kivemu
