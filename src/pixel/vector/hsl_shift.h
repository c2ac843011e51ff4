// The HSL saturation shift (byte HSL form 1, saturation through a table) on
// vector units, a lane per pixel. One kernel source (hsl_shift_kernel.h)
// compiled once per instruction set; pixel/saturation_spans.cpp picks the one
// to run.
#ifndef QTZQ_PIXEL_VECTOR_HSL_SHIFT_H
#define QTZQ_PIXEL_VECTOR_HSL_SHIFT_H

#include <cstddef>

namespace qtzq {

// `count` BGRA pixels from `pixels`, each exactly as shift_hsl_saturation
// (pixel/saturation_kernels.h) does it; alpha is left as it is.
namespace sse2 {
void shift_hsl_saturation_span(unsigned char* pixels, std::size_t count,
                               const unsigned char* table);
}
namespace avx2 {
void shift_hsl_saturation_span(unsigned char* pixels, std::size_t count,
                               const unsigned char* table);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_VECTOR_HSL_SHIFT_H
