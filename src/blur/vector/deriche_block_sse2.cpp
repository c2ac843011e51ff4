// The block kernel for x86-64's baseline vector unit (SSE2).
#define QTZQ_KERNEL_SET sse2
#include "blur/vector/deriche_block_kernel.h"
