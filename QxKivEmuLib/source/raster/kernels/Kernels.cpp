#include "kernels/Kernels.h"

#include "kernels/KernelTables.h"

namespace kivemu {

bool hasKernelSet(EKernelSet set)
{
#ifdef KIV_X86_KERNELS
    static const bool hasAvx2 = __builtin_cpu_supports("avx2");
    return set != EKernelSet::Avx2 || hasAvx2;
#else
    return set == EKernelSet::Plain;
#endif
}

EKernelSet bestKernelSet()
{
    if (hasKernelSet(EKernelSet::Avx2))
        return EKernelSet::Avx2;
    return hasKernelSet(EKernelSet::Sse2) ? EKernelSet::Sse2 : EKernelSet::Plain;
}

const SKernels &kernelSet(EKernelSet set)
{
#ifdef KIV_X86_KERNELS
    switch (set) {
    case EKernelSet::Plain:
        return plainKernels;
    case EKernelSet::Sse2:
        return sse2Kernels;
    case EKernelSet::Avx2:
        return avx2Kernels;
    }
#endif
    static_cast<void>(set);
    return plainKernels;
}

} // namespace kivemu
