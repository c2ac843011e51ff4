// The YUV chroma kernel for SSE2, which every x86-64 CPU has.
#define QTZQ_KERNEL_SET sse2
#define QTZQ_KERNEL_VECTOR_BYTES 16
#include "pixel/vector/yuv_chroma_kernel.h"
