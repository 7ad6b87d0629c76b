#pragma once

#include <string>
#include <vector>

namespace kivemu {

/// What the maker of a font lets others do with it inside their own products (OS/2 fsType).
enum class EFontEmbedding {
    Installable,     ///< may be embedded; also when the font states nothing
    Restricted,      ///< only with the maker's consent
    PreviewAndPrint, ///< in documents that are only read
    Editable         ///< in documents that are edited
};

/// A range along which the shapes of a variable font change.
struct SFontAxis
{
    std::string tag;  ///< four characters, such as "wght"
    std::string name; ///< for people, such as "Weight"; the tag when the font has none
    double minimum = 0;
    double standard = 0;
    double maximum = 0;
};

/// What a font file says about itself. Texts are UTF-8 without control characters, except that
/// those of the licence and the copyright may have several lines.
struct SFontInfo
{
    std::string error; ///< why the file is no font that can be used, without its name; else empty
    std::string family;
    std::string style;
    std::string licence;
    std::string licenceUrl;
    std::string copyright;
    EFontEmbedding embedding = EFontEmbedding::Installable;
    bool noSubsetting = false; ///< must be embedded whole
    bool bitmapOnly = false;   ///< only bitmaps of its glyphs may be embedded
    std::vector<SFontAxis> axes;
    int glyphCount = 0;
};

class CFontFile;

/// What an open font says.
SFontInfo fontInfoOf(const CFontFile &file);
/// Reads a font file, which may hold anything. May be called from any thread.
SFontInfo readFontInfo(const std::string &path);

} // namespace kivemu
