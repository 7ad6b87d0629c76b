#pragma once

#include <QByteArray>
#include <QRgb>
#include <cstdint>

namespace kivtools {

/// The 8-bit value that the chip shows for a code of so many bits: 0 and the highest code stand
/// for 0 and 255, the others lie evenly between.
constexpr int codeToValue(int code, int bits)
{
    const int highest = (1 << bits) - 1;
    return (code * 255 * 2 + highest) / (highest * 2);
}

/// The code whose value is nearest.
constexpr int valueToCode(int value, int bits)
{
    return (value * ((1 << bits) - 1) * 2 + 255) / (255 * 2);
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
