#include "BitmapHead.h"

#include <algorithm>

namespace kivemu {

namespace {

constexpr uint32_t OldHead = 12; ///< bytes, with sizes of two bytes

template<size_t Count>
bool isOneOf(uint32_t value, const uint32_t (&values)[Count])
{
    return std::find(values, values + Count, value) != values + Count;
}

} // namespace

bool readBitmapHead(const uint8_t *bytes, size_t count, SBitmapHead &head)
{
    if (count < BitmapHeadBytes || bytes[0] != 'B' || bytes[1] != 'M')
        return false;
    const auto number = [bytes](size_t at, size_t size) {
        uint32_t value = 0;
        for (size_t i = size; i > 0; --i)
            value = value << 8 | bytes[at + i - 1];
        return value;
    };
    const uint32_t headSize = number(14, 4);
    const bool isOld = headSize == OldHead;
    if (!isOld && !isOneOf(headSize, {40, 64, 108, 124}))
        return false;
    const uint32_t height = isOld ? number(20, 2) : number(22, 4);
    head.width = isOld ? number(18, 2) : number(18, 4);
    head.height = height >> 31 ? 0 - height : height; // upside down when negative
    head.dataStart = number(10, 4);
    const uint32_t depth = isOld ? number(24, 2) : number(28, 2);
    const uint32_t packing = isOld ? 0 : number(30, 4);
    // Runs of 8 or 4 bits, or masks: each of them only with its own depths.
    const bool isPackedRightly =
        packing == 0 || (packing == 1 && depth == 8) || (packing == 2 && depth == 4) ||
        (packing == 3 && (depth == 16 || depth == 32)) || (packing == 4 && depth == 32);
    return head.width > 0 && head.height > 0 && isOneOf(depth, {1, 4, 8, 16, 24, 32}) &&
           isPackedRightly;
}

} // namespace kivemu
