// The soft light kernel for the vector unit every build targets (SSE2 on
// x86-64; on other CPUs whatever the compiler makes of the vectors).
#define QTZQ_KERNEL_SET portable
#define QTZQ_KERNEL_VECTOR_BYTES 16
#include "pixel/vector/soft_light_kernel.h"
