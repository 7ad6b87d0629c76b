#include "CBitmapFormatTable.h"

#include "executor/BitmapFormats.h"

#include <algorithm>
#include <array>

namespace {

using EPath = CBitmapFormatTable::EPath;
using kivemu::EBitmapFormat;

/// In the order of the palette splitter's numbers.
constexpr std::array<EBitmapFormat, 4> Palettes = {
    EBitmapFormat::Paletted, EBitmapFormat::Paletted8, EBitmapFormat::Paletted565,
    EBitmapFormat::Paletted4444};

} // namespace

int CBitmapFormatTable::code(const QString &name)
{
    return kivemu::bitmapFormatCode(name.toStdString());
}

QString CBitmapFormatTable::name(int code)
{
    return QLatin1String(kivemu::bitmapFormatName(static_cast<uint32_t>(code)));
}

EPath CBitmapFormatTable::path(int code)
{
    if (name(code).isEmpty())
        return EPath::None;
    if (!paletteKind(code).isEmpty())
        return EPath::Palette;
    return code == static_cast<int>(EBitmapFormat::Dxt1) ? EPath::Dxt1 : EPath::General;
}

QString CBitmapFormatTable::paletteKind(int code)
{
    const auto kind = std::find(Palettes.begin(), Palettes.end(), static_cast<EBitmapFormat>(code));
    return kind != Palettes.end() ? QString::number(kind - Palettes.begin()) : QString();
}
