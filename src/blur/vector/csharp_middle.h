// The middle of CSharp's blur over a block of lines: the sums of the
// kernel's prefix terms, their exact quotients by the kernel's sum, the
// bytes out. One kernel source (csharp_middle_kernel.h) compiled for the
// portable vector unit and, on x86-64, again for AVX2; csharp_line_blocks.cpp
// picks the one to run.
#ifndef QTZQ_BLUR_VECTOR_CSHARP_MIDDLE_H
#define QTZQ_BLUR_VECTOR_CSHARP_MIDDLE_H

#include <cstdint>

#include "blur/staircase_kernel.h"

namespace qtzq {

struct CSharpMiddle {
    const std::uint32_t* prefix;  // [length + 1][lanes]: prefix sums of every lane
    const PrefixTerm* terms;      // the whole kernel's prefix terms
    int term_count;
    int half;
    int first, end;  // positions [first, end); position j's window starts at j - half
    std::uint32_t multiplier;  // ExactDivider's multiply and shift for the kernel's sum
    int shift;
    unsigned char* out;  // [length][lanes]
};

// For lanes 4 and 32.
namespace portable {
void blur_csharp_middle(const CSharpMiddle& job, int lanes);
}
namespace avx2 {
void blur_csharp_middle(const CSharpMiddle& job, int lanes);
}

}  // namespace qtzq

#endif  // QTZQ_BLUR_VECTOR_CSHARP_MIDDLE_H
