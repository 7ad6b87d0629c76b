#pragma once

#include <QByteArray>
#include <QRgb>
#include <cstdint>

namespace kivtools {

/// The 8-bit value that the chip shows for a code of so many bits (1 to 8): the code's bits
/// repeated, so that 0 and the highest code stand for 0 and 255 and the others lie evenly between.
constexpr int codeToValue(int code, int bits)
{
    int value = 0;
    for (int shift = 8 - bits; shift > -bits; shift -= bits)
        value |= shift >= 0 ? code << shift : code >> -shift;
    return value;
}

/// The code whose value is nearest.
constexpr int valueToCode(int value, int bits)
{
    const int highest = (1 << bits) - 1;
    int code = value * highest / 255; // right or one too low: the values are not quite even
    if (code < highest && codeToValue(code + 1, bits) - value <= value - codeToValue(code, bits))
        ++code;
    return code;
}

/// A pixel laid over black: what formats without alpha keep of it.
inline QRgb overBlack(QRgb pixel)
{
    const int alpha = qAlpha(pixel);
    const auto part = [alpha](int value) { return (value * alpha * 2 + 255) / (255 * 2); };
    return qRgb(part(qRed(pixel)), part(qGreen(pixel)), part(qBlue(pixel)));
}

constexpr uint32_t packRgb565(int red, int green, int blue)
{
    return static_cast<uint32_t>(red << 11 | green << 5 | blue);
}

constexpr uint32_t packArgb4(int alpha, int red, int green, int blue)
{
    return static_cast<uint32_t>(alpha << 12 | red << 8 | green << 4 | blue);
}

/// Appends the lowest `count` bytes, the least significant first.
inline void appendLittleEndian(QByteArray *bytes, uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes->append(static_cast<char>(value >> (8 * i) & 0xff));
}

} // namespace kivtools
