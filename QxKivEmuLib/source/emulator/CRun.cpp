#include "CRun.h"

#include "CFrameMaker.h"

#include <utility>

namespace kivemu {

namespace {

constexpr uint32_t LargestChip = 0x113;

} // namespace

CRun::CRun() : m_chipCode(LargestChip)
{
}

CRun::CRun(SScriptText script, uint32_t chipCode)
    : m_script(std::move(script)), m_chipCode(chipCode)
{
}

CRun::~CRun() = default;

CRun::MakerPtr CRun::newMaker(bool *isLoaded) const
{
    auto maker = std::make_unique<CFrameMaker>(m_chipCode, m_isCancelled);
    const bool isGood = m_script && maker->load(*m_script);
    if (isLoaded)
        *isLoaded = isGood;
    return maker;
}

CRun::MakerPtr CRun::takeMaker()
{
    if (m_makers.empty())
        return nullptr;
    MakerPtr maker = std::move(m_makers.back());
    m_makers.pop_back();
    return maker;
}

void CRun::giveBack(MakerPtr maker)
{
    m_makers.push_back(std::move(maker));
}

const SFrame &CRun::make(CFrameMaker &maker, const CSnapshot &snapshot, uint32_t width,
                         uint32_t height) const
{
    return isStarted() ? maker.make(snapshot, width, height)
                       : maker.makeBlack(width, height, "the emulator is not started");
}

} // namespace kivemu
