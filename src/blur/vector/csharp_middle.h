// The inner loops of CSharp's blur over a block of lines: the lines' prefix
// sums, and the middle of the lines, the kernel's boxes summed from the
// prefix sums and divided exactly by the kernel's sum. One kernel source
// (csharp_middle_kernel.h) compiled for the portable vector unit and, on
// x86-64, again for AVX2 (on 32-bit ARM, for NEON); csharp_line_blocks.cpp picks the one to run.
#ifndef QTZQ_BLUR_VECTOR_CSHARP_MIDDLE_H
#define QTZQ_BLUR_VECTOR_CSHARP_MIDDLE_H

#include <cstddef>
#include <cstdint>

#include "blur/exact_divider.h"
#include "blur/staircase_kernel.h"

namespace qtzq {

// The prefix sums are 32-bit, or 16-bit (prefix16 set, prefix null) when
// every sum of the pass fits in 16 bits.
struct CSharpMiddle {
    const std::uint32_t* prefix;  // [length + 1][lanes]: prefix sums of every lane
    const std::uint16_t* prefix16;
    const WeightBox* boxes;       // the kernel's boxes
    int box_count;
    int half;
    int first, end;  // positions [first, end); position j's window starts at j - half
    ExactDivider divide;  // by the kernel's sum
    unsigned char* out;  // [length][lanes]
};

// The lines' prefix sums: byte c of sample t of line k at in[t * step + k *
// line_step + c] (k < lanes / 4, c < 4) adds to lane 4 * k + c of rows t + 1
// and on of prefix ([length + 1][lanes]; row 0 is all zero).
struct CSharpPrefix {
    const unsigned char* in;
    std::ptrdiff_t step;
    std::ptrdiff_t line_step;
    int length;
    std::uint32_t* prefix;
    std::uint16_t* prefix16;
};

// Each for lanes 4 and 32.
namespace portable {
void fill_csharp_prefix(const CSharpPrefix& job, int lanes);
void blur_csharp_middle(const CSharpMiddle& job, int lanes);
}  // namespace portable
namespace avx2 {
void fill_csharp_prefix(const CSharpPrefix& job, int lanes);
void blur_csharp_middle(const CSharpMiddle& job, int lanes);
}  // namespace avx2
namespace neon {
void fill_csharp_prefix(const CSharpPrefix& job, int lanes);
void blur_csharp_middle(const CSharpMiddle& job, int lanes);
}  // namespace neon

}  // namespace qtzq

#endif  // QTZQ_BLUR_VECTOR_CSHARP_MIDDLE_H
