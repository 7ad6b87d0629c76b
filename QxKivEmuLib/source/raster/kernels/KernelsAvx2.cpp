#include "kernels/KernelTables.h"

#include "kernels/KernelLoops.h"
#include "kernels/VectorAvx2.h"

namespace kivemu {

const SKernels avx2Kernels = kernelTable<SAvx2>();

} // namespace kivemu
