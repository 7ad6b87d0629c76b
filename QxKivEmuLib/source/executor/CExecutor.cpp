#include "CExecutor.h"

#include "CCommandRunner.h"
#include "raster/CRasterizer.h"

#include <optional>

namespace kivemu {

/// What lives longer than one execution.
struct CExecutor::SState
{
    std::optional<EKernelSet> kernels; ///< nothing: the fastest that there is
    CCommandRunner::SCaches caches;
    const std::atomic<bool> *cancelled = nullptr;
};

CExecutor::CExecutor() : m_state(std::make_unique<SState>())
{
}

CExecutor::CExecutor(EKernelSet kernels) : CExecutor()
{
    m_state->kernels = kernels;
}

CExecutor::~CExecutor() = default;

void CExecutor::followCancel(const std::atomic<bool> &cancelled)
{
    m_state->cancelled = &cancelled;
}

std::vector<SExecutionError> CExecutor::execute(const uint32_t *words, size_t count,
                                                const CRamG &memory, CSurface &surface)
{
    CRasterizer rasterizer =
        m_state->kernels ? CRasterizer(surface, *m_state->kernels) : CRasterizer(surface);
    CCommandRunner runner(rasterizer, memory, m_state->caches, m_state->cancelled);
    return runner.run(words, count);
}

} // namespace kivemu
