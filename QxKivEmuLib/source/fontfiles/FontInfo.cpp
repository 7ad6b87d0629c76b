#include "FontInfo.h"

#include "CFontFile.h"
#include "FontNames.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MULTIPLE_MASTERS_H
#include FT_SFNT_NAMES_H
#include FT_TRUETYPE_IDS_H

namespace kivemu {

namespace {

/// Of several permissions the one that allows most holds.
EFontEmbedding embeddingOf(FT_UShort flags)
{
    if ((flags & FT_FSTYPE_EDITABLE_EMBEDDING) != 0)
        return EFontEmbedding::Editable;
    if ((flags & FT_FSTYPE_PREVIEW_AND_PRINT_EMBEDDING) != 0)
        return EFontEmbedding::PreviewAndPrint;
    if ((flags & FT_FSTYPE_RESTRICTED_LICENSE_EMBEDDING) != 0)
        return EFontEmbedding::Restricted;
    return EFontEmbedding::Installable;
}

double number(FT_Fixed fixed)
{
    return static_cast<double>(fixed) / 65536;
}

std::vector<SFontAxis> axesOf(FT_Face face)
{
    std::vector<SFontAxis> axes;
    FT_MM_Var *variations = nullptr;
    if (!FT_HAS_MULTIPLE_MASTERS(face) || FT_Get_MM_Var(face, &variations) != 0)
        return axes;
    for (FT_UInt at = 0; at < variations->num_axis; ++at) {
        const FT_Var_Axis &axis = variations->axis[at];
        SFontAxis known;
        for (int shift = 24; shift >= 0; shift -= 8) {
            const char letter = static_cast<char>(axis.tag >> shift & 0xFFU);
            known.tag += letter >= 0x20 && letter < 0x7F ? letter : '?';
        }
        known.name = fontName(face, axis.strid);
        if (known.name.empty())
            known.name = known.tag;
        known.minimum = number(axis.minimum);
        known.standard = number(axis.def);
        known.maximum = number(axis.maximum);
        axes.push_back(std::move(known));
    }
    FT_Done_MM_Var(face->glyph->library, variations);
    return axes;
}

std::string firstName(FT_Face face, unsigned first, unsigned second)
{
    std::string name = fontName(face, first);
    if (name.empty())
        name = fontName(face, second);
    return name;
}

} // namespace

SFontInfo readFontInfo(const std::string &path)
{
    CFontFile file;
    SFontInfo info;
    info.error = file.open(path);
    return info.error.empty() ? fontInfoOf(file) : info;
}

SFontInfo fontInfoOf(const CFontFile &file)
{
    SFontInfo info;
    const FT_Face face = file.face();
    info.family = firstName(face, TT_NAME_ID_TYPOGRAPHIC_FAMILY, TT_NAME_ID_FONT_FAMILY);
    info.style = firstName(face, TT_NAME_ID_TYPOGRAPHIC_SUBFAMILY, TT_NAME_ID_FONT_SUBFAMILY);
    info.licence = fontName(face, TT_NAME_ID_LICENSE, ENameLines::Several);
    info.licenceUrl = fontName(face, TT_NAME_ID_LICENSE_URL);
    info.copyright = fontName(face, TT_NAME_ID_COPYRIGHT, ENameLines::Several);
    const FT_UShort flags = FT_Get_FSType_Flags(face);
    info.embedding = embeddingOf(flags);
    info.noSubsetting = (flags & FT_FSTYPE_NO_SUBSETTING) != 0;
    info.bitmapOnly = (flags & FT_FSTYPE_BITMAP_EMBEDDING_ONLY) != 0;
    info.axes = axesOf(face);
    info.glyphCount = static_cast<int>(face->num_glyphs);
    return info;
}

} // namespace kivemu
