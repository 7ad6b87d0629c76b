#pragma once

#include "raster/RasterTypes.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kivemu {

class CRamG;
class CSurface;

/// One thing that is wrong in a display list.
struct SExecutionError
{
    uint32_t item;    ///< id of the item tag under which it lies; 0 before the first
    size_t wordIndex; ///< of the command's header
    std::string message;
};

/// Executes display-list words against graphics memory and draws the frame: the emulated chip.
/// A malformed command is reported and skipped; nothing is read past the list or the memory. At
/// most MaxErrors are reported.
/// Decoded bitmaps are kept between executions until the memory's generation changes.
/// Threads: one thread at a time.
class CExecutor
{
public:
    static constexpr size_t MaxErrors = 32;

    CExecutor();
    explicit CExecutor(EKernelSet kernels);
    ~CExecutor();

    /// A flag that ends an execution when it becomes true, wherever the frame then is; it must
    /// outlive the executor.
    void followCancel(const std::atomic<bool> &cancelled);

    /// Draws onto a black frame until the end command (a missing one is an error) and gives what
    /// is wrong. The same words and memory give the same frame, whatever was on the surface.
    std::vector<SExecutionError> execute(const uint32_t *words, size_t count, const CRamG &memory,
                                         CSurface &surface);

private:
    struct SState;
    std::unique_ptr<SState> m_state;
};

} // namespace kivemu
