#include "kernels/KernelTables.h"

#include "kernels/KernelLoops.h"
#include "kernels/VectorSse2.h"

namespace kivemu {

const SKernels sse2Kernels = kernelTable<SSse2>();

} // namespace kivemu
