// CSharp's column pass run down the image over whole rows, fed the rows of
// the row pass one at a time: the prefix sums of those rows kept as row
// vectors, P[y] = P[y - 1] + row[y - 1], in a ring of the last 2 * half + 2,
// and each row of the blur a handful of differences of them, the kernel's
// boxes. The same bytes as the column pass of CSharpLineBlocks (same
// clamping at the top and bottom edges, same divisors, same 16- or 32-bit
// sums), with only the ring in memory instead of a whole row-pass image.
#ifndef QTZQ_BLUR_CSHARP_COLUMN_SWEEP_H
#define QTZQ_BLUR_CSHARP_COLUMN_SWEEP_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "blur/exact_divider.h"
#include "blur/staircase_kernel.h"

namespace qtzq {

class CSharpColumnSweep {
public:
    // `kernel` holds the weights K[0 .. kernel_size); `kernel_sum` is their
    // sum, the divisor of the middle of a column.
    CSharpColumnSweep(const int* kernel, int kernel_sum, int kernel_size, int width, int height);

    // The ring's size in bytes for these sizes.
    static std::size_t ring_bytes(const int* kernel, int kernel_size, int width, int height);

    // Takes the next row of the row pass (width * 4 bytes), then hands every
    // row of the blur whose rows are now all in to emit(y, blurred) in order
    // (width * 4 bytes, the fourth the blurred alpha). Once the last row is
    // in, every remaining row of the blur has been handed over.
    template <class Emit>
    void add_row(const unsigned char* row, Emit emit) {
        add_prefix_row(row);
        while (ready()) {
            const int y = next_;
            emit(y, blur_next_row());
        }
    }

private:
    // Where row y's window reads the prefix rows: P[clamp(base + tap, lo, hi)]
    // for the kernel's taps, divided by `divide`.
    struct Window {
        int base;
        int lo;
        int hi;
        ExactDivider divide;
    };

    void add_prefix_row(const unsigned char* row);
    bool ready() const;
    Window window(int y) const;
    const unsigned char* blur_next_row();
    std::size_t slot(int index) const;  // where prefix row P[index] lies in the ring

    StaircaseKernel kernel_;
    int half_;
    int height_;
    std::ptrdiff_t row_bytes_;
    std::ptrdiff_t lanes_;  // row_bytes rounded up to whole vectors; the rest stays zero
    int slots_;   // prefix rows in the ring
    bool narrow_;  // 16-bit sums: every sum of the pass fits
    ExactDivider middle_;
    int added_ = 0;  // rows of the row pass in: P[0 .. added_] known
    int next_ = 0;   // the next row of the blur
    std::vector<std::uint32_t> ring_;
    std::vector<std::uint16_t> ring16_;
    std::vector<unsigned char> out_;  // a row of the blur, padded to lanes_
    std::vector<std::uint32_t> heights_;  // the kernel's boxes' heights
    std::vector<std::size_t> begins_, ends_;  // where a row's boxes start and end in the ring
};

}  // namespace qtzq

#endif  // QTZQ_BLUR_CSHARP_COLUMN_SWEEP_H
