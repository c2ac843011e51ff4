// The line filter of the recursive Gaussian: one causal and one anticausal
// fourth-order pass over a line of pixels, blue, green and red.
#ifndef QTZQ_BLUR_DERICHE_LINE_FILTER_H
#define QTZQ_BLUR_DERICHE_LINE_FILTER_H

#include <cstddef>
#include <vector>

#include "blur/deriche_coefficients.h"

namespace qtzq {

// Number of colour channels filtered per pixel (blue, green, red).
constexpr int kFilteredChannels = 3;

// Y + Z converted to a byte: truncated toward zero, 0 or less (or not a
// number) gives 0, 255 or more gives 255. Internal linkage: the vector
// kernels, compiled for wider instruction sets, each keep their own copy.
static inline unsigned char filtered_to_byte(double v) {
    if (!(v > 0.0)) return 0;
    if (v >= 255.0) return 255;
    return static_cast<unsigned char>(static_cast<int>(v));
}

// Owns the two work arrays, so one filter serves every line of a pass and
// concurrent passes never share memory.
class DericheLineFilter {
public:
    // Room for lines of up to max_length pixels (0 or less: none).
    explicit DericheLineFilter(int max_length);

    // Filters `length` pixels (at most max_length). Channel c of pixel p is
    // read from in[p * in_step + c] and written to out[p * out_step + c];
    // every input of the line is read before any output is written, so `in`
    // may be `out`. The pixels before the line's start (after its end) are
    // taken as the first (last) pixel repeated, the filter in steady state.
    void run(const unsigned char* in, std::ptrdiff_t in_step, unsigned char* out,
             std::ptrdiff_t out_step, int length, const DericheCoefficients& k);

private:
    std::vector<double> causal_;      // Y, three doubles per position
    std::vector<double> anticausal_;  // Z, three doubles per position
};

}  // namespace qtzq

#endif  // QTZQ_BLUR_DERICHE_LINE_FILTER_H
