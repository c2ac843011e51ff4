// The inner loops of CSharp's column pass run down the image over whole
// rows: the prefix sums of the row-blurred rows, one row vector after
// another, and a row of the blur, the kernel's boxes summed from those
// prefix rows and divided exactly. Every lane of a row is contiguous, so a
// vector holds neighbouring lanes of one row. One kernel source
// (csharp_rows_kernel.h) compiled for the portable vector unit and, on
// x86-64, again for AVX2 (on 32-bit ARM, for NEON); csharp_column_sweep.cpp picks the one to run.
#ifndef QTZQ_BLUR_VECTOR_CSHARP_ROWS_H
#define QTZQ_BLUR_VECTOR_CSHARP_ROWS_H

#include <cstddef>
#include <cstdint>

#include "blur/exact_divider.h"

namespace qtzq {

// Rows of the blur are `lanes` long, a multiple of kCSharpRowLanes, and
// so are the prefix rows they read. The prefix rows are
// 32-bit, or 16-bit (the *16 pointers set, the others null) when every sum
// of the pass fits in 16 bits.
constexpr int kCSharpRowLanes = 32;

// next[i] = previous[i] + bytes[i], i < lanes (any count): the prefix row
// one row further down.
struct CSharpRowPrefix {
    const std::uint32_t* previous;
    const std::uint16_t* previous16;
    const unsigned char* bytes;
    std::uint32_t* next;
    std::uint16_t* next16;
    std::ptrdiff_t lanes;
};

// out[i] = (sum over boxes k of heights[k] * (ring[ends[k] + i] -
// ring[begins[k] + i])) / divisor: ends and begins are offsets of prefix
// rows in the ring.
struct CSharpRowBoxes {
    const std::uint32_t* ring;
    const std::uint16_t* ring16;
    const std::size_t* begins;
    const std::size_t* ends;
    const std::uint32_t* heights;
    int box_count;
    std::ptrdiff_t lanes;
    ExactDivider divide;
    unsigned char* out;
};

namespace portable {
void add_csharp_prefix_row(const CSharpRowPrefix& job);
void sum_csharp_row_boxes(const CSharpRowBoxes& job);
}  // namespace portable
namespace avx2 {
void add_csharp_prefix_row(const CSharpRowPrefix& job);
void sum_csharp_row_boxes(const CSharpRowBoxes& job);
}  // namespace avx2
namespace neon {
void add_csharp_prefix_row(const CSharpRowPrefix& job);
void sum_csharp_row_boxes(const CSharpRowBoxes& job);
}  // namespace neon

}  // namespace qtzq

#endif  // QTZQ_BLUR_VECTOR_CSHARP_ROWS_H
