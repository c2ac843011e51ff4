// The kernel for NEON on 32-bit ARM (compiled with -mfpu=neon); run only on
// CPUs that report NEON. Integer work only: NEON's float unit flushes
// denormals, so no floating-point kernel is ever built for it.
#define QTZQ_KERNEL_SET neon
#define QTZQ_KERNEL_VECTOR_BYTES 16
#include "blur/vector/csharp_rows_kernel.h"
