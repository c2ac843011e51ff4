// The HSL saturation shift for x86-64's baseline vector unit (SSE2), four
// pixels at a time.
#define QTZQ_KERNEL_SET sse2
#define QTZQ_KERNEL_LANES 4
#include "pixel/vector/hsl_shift_kernel.h"
