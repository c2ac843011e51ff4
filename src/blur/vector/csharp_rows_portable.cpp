// The kernel for the vector unit every build targets (SSE2 on x86-64; on
// other CPUs whatever the compiler makes of the vectors).
#define QTZQ_KERNEL_SET portable
#define QTZQ_KERNEL_VECTOR_BYTES 16
#include "blur/vector/csharp_rows_kernel.h"
