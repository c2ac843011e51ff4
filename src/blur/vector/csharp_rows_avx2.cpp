// The kernel for AVX2 (compiled with -mavx2 and nothing else); run only on
// CPUs that report AVX2.
#define QTZQ_KERNEL_SET avx2
#define QTZQ_KERNEL_VECTOR_BYTES 32
#include "blur/vector/csharp_rows_kernel.h"
