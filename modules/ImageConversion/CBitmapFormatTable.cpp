#include "CBitmapFormatTable.h"

namespace {

struct SRow
{
    const char *name;
    int code;
    CBitmapFormatTable::EPath path;
    const char *paletteKind;
};

using EPath = CBitmapFormatTable::EPath;

// Not in the order of the codes: "L2" was given its number late, and 10 and 11 have no format.
constexpr SRow Rows[] = {
    {"ARGB1555", 0, EPath::General, ""},
    {"L1", 1, EPath::General, ""},
    {"L4", 2, EPath::General, ""},
    {"L8", 3, EPath::General, ""},
    {"RGB332", 4, EPath::General, ""},
    {"ARGB2", 5, EPath::General, ""},
    {"ARGB4", 6, EPath::General, ""},
    {"RGB565", 7, EPath::General, ""},
    {"PALETTED", 8, EPath::Palette, "0"},
    {"L2", 9, EPath::General, ""},
    {"PALETTED8", 12, EPath::Palette, "1"},
    {"PALETTED4444", 13, EPath::Palette, "3"},
    {"PALETTED565", 14, EPath::Palette, "2"},
    {"DXT1", 255, EPath::Dxt1, ""},
};

const SRow *rowOf(int code)
{
    for (const SRow &row : Rows)
        if (row.code == code)
            return &row;
    return nullptr;
}

} // namespace

int CBitmapFormatTable::code(const QString &name)
{
    for (const SRow &row : Rows)
        if (name == QLatin1String(row.name))
            return row.code;
    return UnknownCode;
}

QString CBitmapFormatTable::name(int code)
{
    const SRow *row = rowOf(code);
    return row ? QString::fromLatin1(row->name) : QString();
}

CBitmapFormatTable::EPath CBitmapFormatTable::path(int code)
{
    const SRow *row = rowOf(code);
    return row ? row->path : EPath::None;
}

QString CBitmapFormatTable::paletteKind(int code)
{
    const SRow *row = rowOf(code);
    return row ? QString::fromLatin1(row->paletteKind) : QString();
}
