// The block kernel for AVX2 (compiled with -mavx2 and nothing that enables
// fused multiply-add); run only on CPUs that report AVX2.
#define QTZQ_KERNEL_SET avx2
#include "blur/vector/deriche_block_kernel.h"
