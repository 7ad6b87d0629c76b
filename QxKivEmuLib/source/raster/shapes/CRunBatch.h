#pragma once

#include "shapes/PixelRange.h"
#include "shapes/Shapes.h"

namespace kivemu {

/// Collects the runs of a shape and hands them to a kernel, many at a time.
template<class Kernel>
class CRunBatch
{
public:
    explicit CRunBatch(Kernel kernel) : m_kernel(kernel) {}
    ~CRunBatch() { flush(); }
    CRunBatch(const CRunBatch &) = delete;
    CRunBatch &operator=(const CRunBatch &) = delete;

    void add(int y, SPixelRange range)
    {
        if (range.isEmpty())
            return;
        m_runs[m_count] = {y, range.first, range.count()};
        if (++m_count == Capacity)
            flush();
    }

private:
    void flush()
    {
        if (m_count > 0)
            m_kernel(m_runs, m_count);
        m_count = 0;
    }

    static constexpr int Capacity = 64;
    Kernel m_kernel;
    int m_count = 0;
    SRun m_runs[Capacity];
};

/// A kernel for solid runs.
inline auto solidRuns(const SCanvas &canvas, const SInk &ink)
{
    return [&canvas, &ink](const SRun *runs, int count) {
        canvas.kernels->fillRuns(canvas.target, runs, count, ink);
    };
}

} // namespace kivemu
