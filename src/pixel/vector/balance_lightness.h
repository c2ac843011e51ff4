// Colour balance keeping lightness over a span of BGRA pixels: the three
// balance curves, then the integer HLS round trip that gives each pixel the
// lightness of its incoming colour. One kernel source
// (balance_lightness_kernel.h) compiled for the portable vector unit and, on
// x86-64, again for AVX2 (on 32-bit ARM, for NEON); balance_span.cpp picks the one to run.
#ifndef QTZQ_PIXEL_VECTOR_BALANCE_LIGHTNESS_H
#define QTZQ_PIXEL_VECTOR_BALANCE_LIGHTNESS_H

#include <cstddef>

#include "pixel/int_hls_tables.h"

namespace qtzq {

// Curves red, green, blue, one after another, with room for a 4-byte load
// at the last entry.
struct PaddedCurves {
    unsigned char levels[3 * 256 + 4];
};

struct BalanceLightnessJob {
    unsigned char* pixels;  // count BGRA pixels; alpha is left alone
    std::size_t count;
    const PaddedCurves* curves;
    const IntHlsTables* tables;
};

namespace portable {
void balance_keep_lightness(const BalanceLightnessJob& job);
}  // namespace portable
namespace avx2 {
void balance_keep_lightness(const BalanceLightnessJob& job);
}  // namespace avx2
namespace neon {
void balance_keep_lightness(const BalanceLightnessJob& job);
}  // namespace neon

}  // namespace qtzq

#endif  // QTZQ_PIXEL_VECTOR_BALANCE_LIGHTNESS_H
