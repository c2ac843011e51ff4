// The recursive Gaussian's line filter on vector units: a block of up to
// kDericheBlockLines lines at once, one double lane per line, a vector per
// channel (blue, green, red). One kernel source (deriche_block_kernel.h) compiled
// once per instruction set; deriche_lines.cpp picks the one to run.
#ifndef QTZQ_BLUR_VECTOR_DERICHE_BLOCK_H
#define QTZQ_BLUR_VECTOR_DERICHE_BLOCK_H

#include <cstddef>

#include "blur/deriche_coefficients.h"
#include "blur/deriche_lines.h"

namespace qtzq {

constexpr int kDericheBlockLines = 4;
constexpr std::size_t kDericheBlockAlignment = 32;

// Doubles of work area a block of lines of `length` pixels needs: input,
// causal and anticausal values, four lanes per pixel and line.
inline std::size_t deriche_block_work_doubles(int length) {
    return std::size_t(length) * kDericheBlockLines * 4 * 3;
}

// Filters lines.count (1..kDericheBlockLines) lines exactly as
// DericheLineFilter::run does one by one. `work` holds
// deriche_block_work_doubles(lines.length) doubles, aligned to
// kDericheBlockAlignment bytes.
namespace sse2 {
void filter_deriche_block(const DericheLines& lines, const DericheCoefficients& k, double* work);
}
namespace avx2 {
void filter_deriche_block(const DericheLines& lines, const DericheCoefficients& k, double* work);
}

}  // namespace qtzq

#endif  // QTZQ_BLUR_VECTOR_DERICHE_BLOCK_H
