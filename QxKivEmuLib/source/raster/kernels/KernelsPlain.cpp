#include "kernels/KernelTables.h"

#include "kernels/KernelLoops.h"
#include "kernels/VectorPlain.h"

namespace kivemu {

const SKernels plainKernels = kernelTable<SPlain>();

} // namespace kivemu
