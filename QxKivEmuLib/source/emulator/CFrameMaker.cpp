#include "CFrameMaker.h"

#include "displaylist/DisplayListText.h"
#include "host/items/CSnapshot.h"
#include "raster/CSurface.h"

#include <algorithm>

namespace kivemu {

namespace {

void addLines(std::string &text, const std::string &lines)
{
    if (!text.empty() && !lines.empty())
        text += '\n';
    text += lines;
}

std::string labelOf(const CSnapshot *snapshot, uint32_t id)
{
    const std::optional<size_t> item = snapshot ? snapshot->findItem(id) : std::nullopt;
    return item ? snapshot->label(*item) : "display list";
}

std::string sizeText(uint32_t width, uint32_t height)
{
    return std::to_string(width) + " x " + std::to_string(height);
}

} // namespace

CFrameMaker::CFrameMaker(uint32_t chipCode, const std::atomic<bool> &cancelled)
    : m_host(chipLimits(chipCode))
{
    m_host.followCancel(cancelled);
    m_executor.followCancel(cancelled);
}

CFrameMaker::~CFrameMaker() = default;

const SFrame &CFrameMaker::make(const CSnapshot &snapshot, uint32_t width, uint32_t height)
{
    const uint32_t maxSide = m_host.chip().maxSide;
    m_frame.width = std::min(width, maxSide);
    m_frame.height = std::min(height, maxSide);
    m_frame.errors.clear();
    if (width > maxSide || height > maxSide)
        m_frame.errors = "the screen of " + sizeText(width, height) +
                         " is cut: the chip's largest is " + sizeText(maxSide, maxSide);
    const SDrawing drawing =
        m_host.draw(snapshot, static_cast<int>(m_frame.width), static_cast<int>(m_frame.height));
    execute(drawing.words, &snapshot);
    m_frame.ramDlUsage = drawing.ramDlNeeded;
    m_frame.ramGUsage = drawing.ramGNeeded;
    m_frame.cutTexts = drawing.cutTexts;
    addLines(m_frame.errors, drawing.errors.text());
    addLines(m_frame.errors, m_executionErrors);
    return m_frame;
}

const SFrame &CFrameMaker::makeBlack(uint32_t width, uint32_t height, const std::string &error)
{
    constexpr uint32_t LargestSide = CSurface::MaxSide;
    m_frame.width = std::min(width, LargestSide);
    m_frame.height = std::min(height, LargestSide);
    m_frame.errors = error;
    m_frame.cutTexts.clear();
    CDisplayListWriter writer(m_host.chip().ramDl);
    writer.clear(0xFF000000);
    writer.finish();
    execute(writer.words(), nullptr);
    m_frame.ramDlUsage = m_frame.displayList.size();
    m_frame.ramGUsage = m_host.memory().used();
    return m_frame;
}

void CFrameMaker::execute(const std::vector<uint32_t> &words, const CSnapshot *snapshot)
{
    const int width = static_cast<int>(m_frame.width);
    const int height = static_cast<int>(m_frame.height);
    const CRamG &memory = m_host.memory();
    const bool isSameSize =
        m_surface && m_surface->width() == width && m_surface->height() == height;
    if (isSameSize && words == m_words && memory.generation() == m_generation)
        return;
    if (!isSameSize)
        m_surface = std::make_unique<CSurface>(width, height);
    m_executionErrors.clear();
    for (const SExecutionError &error :
         m_executor.execute(words.data(), words.size(), memory, *m_surface))
        addLines(m_executionErrors, labelOf(snapshot, error.item) + ": " + error.message);
    m_words = words;
    m_generation = memory.generation();
    m_frame.displayList = toBytes(words);
    m_frame.displayListText = disassemble(words.data(), words.size());
    copyPixels();
}

void CFrameMaker::copyPixels()
{
    const size_t width = m_frame.width;
    m_frame.pixels.resize(width * m_frame.height);
    for (uint32_t y = 0; y < m_frame.height; ++y)
        std::copy_n(m_surface->row(static_cast<int>(y)), width, m_frame.pixels.data() + y * width);
}

} // namespace kivemu
