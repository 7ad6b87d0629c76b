#pragma once

#include "kernels/Kernels.h"

namespace kivemu {

// One per translation unit that is compiled for its instruction set.
extern const SKernels plainKernels;
#ifdef KIV_X86_KERNELS
extern const SKernels sse2Kernels;
extern const SKernels avx2Kernels;
#endif

} // namespace kivemu
