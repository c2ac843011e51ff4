// The HSL saturation shift over a span of pixels, on the best vector unit
// available.
#ifndef QTZQ_PIXEL_HSL_SHIFT_H
#define QTZQ_PIXEL_HSL_SHIFT_H

#include <cstddef>

namespace qtzq {

// shift_hsl_saturation (pixel/saturation_kernels.h) on `count` consecutive
// BGRA pixels, with the same bytes on every unit. Vector kernels on x86-64
// (AVX2 or SSE2, by active_vector_unit()); the per-pixel scalar code
// elsewhere and whenever the scalar path is forced.
void shift_hsl_saturation_span(unsigned char* pixels, std::size_t count,
                               const unsigned char* table);

}  // namespace qtzq

#endif  // QTZQ_PIXEL_HSL_SHIFT_H
