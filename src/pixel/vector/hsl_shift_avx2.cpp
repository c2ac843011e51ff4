// The HSL saturation shift for AVX2 (compiled with -mavx2 and nothing that
// enables fused multiply-add), eight pixels at a time; run only on CPUs that
// report AVX2.
#define QTZQ_KERNEL_SET avx2
#define QTZQ_KERNEL_LANES 8
#include "pixel/vector/hsl_shift_kernel.h"
