#include "CBitmapCommands.h"

#include "BitmapFormats.h"
#include "CDrawingBudget.h"
#include "CRamG.h"
#include "raster/CRasterizer.h"

namespace kivemu {

namespace {

EBitmapWrap wrap(uint32_t mode, EBitmapModeBit bit)
{
    return mode & bit ? EBitmapWrap::Repeat : EBitmapWrap::Border;
}

} // namespace

CBitmapCommands::CBitmapCommands(const SExecution &execution, CBitmapCache &bitmaps)
    : m_chip(execution), m_bitmaps(bitmaps)
{
    m_bitmaps.follow(m_chip.memory);
}

void CBitmapCommands::source(const uint32_t *words)
{
    m_key.format = operand(words[0]);
    m_key.address = words[1];
    m_image.reset();
}

void CBitmapCommands::layout(const uint32_t *words)
{
    m_key.stride = words[1];
    m_key.width = lowUnsigned(words[2]);
    m_key.height = highUnsigned(words[2]);
    m_image.reset();
}

void CBitmapCommands::palette(const uint32_t *words)
{
    m_key.palette = operand(words[0]);
    m_image.reset();
}

void CBitmapCommands::transform(const uint32_t *words)
{
    const auto value = [&](size_t index) { return static_cast<int32_t>(words[index]); };
    m_placement.a = value(1);
    m_placement.b = value(2);
    m_placement.c = value(3);
    m_placement.d = value(4);
    m_placement.e = value(5);
    m_placement.f = value(6);
}

void CBitmapCommands::mode(const uint32_t *words)
{
    const uint32_t mode = operand(words[0]);
    m_placement.filter =
        mode & BitmapModeBilinear ? EBitmapFilter::Bilinear : EBitmapFilter::Nearest;
    m_placement.wrapX = wrap(mode, BitmapModeRepeatX);
    m_placement.wrapY = wrap(mode, BitmapModeRepeatY);
}

void CBitmapCommands::draw(const uint32_t *words)
{
    const SBitmapImage *texels = image();
    if (!texels) {
        m_chip.errors.add(EOpcode::Bitmap, fault());
        return;
    }
    m_placement.topLeft = point(words[1]);
    m_placement.size = extent(words[2]);
    m_chip.rasterizer.drawBitmap(*texels, m_placement, m_chip.state.paint);
}

const SBitmapImage *CBitmapCommands::image()
{
    if (m_image)
        return m_image.get();
    m_image = m_bitmaps.find(m_chip.memory, m_key);
    if (m_image)
        m_chip.budget.countBitmap(m_key);
    return m_image.get();
}

std::string CBitmapCommands::fault() const
{
    const auto fits = [](int side) { return side >= 1 && side <= MaxBitmapSide; };
    const SBitmapKey &key = m_key;
    if (!fits(key.width) || !fits(key.height))
        return "the size " + std::to_string(key.width) + " x " + std::to_string(key.height) +
               " is not in 1 to " + std::to_string(MaxBitmapSide);
    if (bitmapStride(key.format, key.width) == 0)
        return "there is no bitmap format " + std::to_string(key.format);
    return "the bitmap at " + std::to_string(key.address) + " or its palette reaches beyond the " +
           std::to_string(m_chip.memory.used()) + " bytes of RAM_G that are in use";
}

} // namespace kivemu
