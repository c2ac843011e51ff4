// CSharp's blur of one pass over a block of lines at once, through prefix
// sums of the kernel's runs: the same bytes as convolving every line tap by
// tap, at a cost that does not grow with the radius.
#ifndef QTZQ_BLUR_CSHARP_LINE_BLOCKS_H
#define QTZQ_BLUR_CSHARP_LINE_BLOCKS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "blur/exact_divider.h"
#include "blur/staircase_kernel.h"

namespace qtzq {

// kLanes lines blurred side by side: the four bytes of each of kLanes / 4
// pixels, one from each of as many neighbouring lines.
template <int kLanes>
class CSharpLineBlocks {
public:
    static_assert(kLanes % 4 == 0, "lanes come in vectors of four");

    // `kernel` holds the pass's weights K[0 .. 2 * half]; `kernel_sum` is the
    // sum of the whole kernel, the divisor of the middle of a line.
    CSharpLineBlocks(const int* kernel, int kernel_sum, int half, int length);

    // Reads byte c of sample t of line k at in[t * step + k * line_step + c],
    // t < length, k < kLanes / 4, c < 4, and writes the blurred bytes to
    // out[t * kLanes + 4 * k + c].
    void blur(const unsigned char* in, std::ptrdiff_t step, std::ptrdiff_t line_step,
              unsigned char* out);

private:
    void fill_prefix(const unsigned char* in, std::ptrdiff_t step, std::ptrdiff_t line_step);
    void blur_middle(unsigned char* out) const;
    std::uint32_t window_sum(int lane, int offset, int lo, int hi) const;
    unsigned char left_edge(int lane, int j) const;
    unsigned char right_edge(int lane, int j) const;

    StaircaseKernel kernel_;
    ExactDivider divide_;
    int half_;
    int length_;
    // [length + 1][kLanes]: 16-bit when every sum of the pass fits in 16
    // bits (the small radii: twice the lanes per vector), else 32-bit.
    bool narrow_;
    std::vector<std::uint32_t> prefix_;
    std::vector<std::uint16_t> prefix16_;
};

extern template class CSharpLineBlocks<4>;
extern template class CSharpLineBlocks<32>;

}  // namespace qtzq

#endif  // QTZQ_BLUR_CSHARP_LINE_BLOCKS_H
