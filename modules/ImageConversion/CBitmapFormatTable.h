#pragma once

#include <QString>

/// The names of the chip's bitmap formats, as in a bitmap widget's "format", and their codes.
class CBitmapFormatTable
{
public:
    /// Which tool makes a format.
    enum class EPath { None, General, Palette, Dxt1 };

    static constexpr int UnknownCode = -1;

    /// Code of a name (case-sensitive); UnknownCode for any other text.
    static int code(const QString &name);
    /// Name of a code; empty for codes that have none.
    static QString name(int code);
    /// None for codes that have no name.
    static EPath path(int code);
    /// The palette splitter's number for a palette format, "0" to "3"; empty for others.
    static QString paletteKind(int code);
};
