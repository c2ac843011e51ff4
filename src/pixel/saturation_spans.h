// Saturation steps over a run of BGRA pixels (alpha untouched): the 3 x 3
// fixed-point matrix, the HSL saturation table and the YUV chroma table. Each takes the fastest path
// this CPU and the vector-unit limit allow; every path gives the bytes of
// the per-pixel code in saturation_kernels.h, which is the reference and
// runs when the limit forces the scalar path. Strips of any length may be
// passed, so callers can sweep a photo row by row or in one go.
#ifndef QTZQ_PIXEL_SATURATION_SPANS_H
#define QTZQ_PIXEL_SATURATION_SPANS_H

#include <cstddef>

namespace qtzq {

// apply_saturation_matrix on `count` pixels; `matrix` holds nine entries.
void saturation_matrix_span(unsigned char* px, std::size_t count, const int* matrix);

// shift_hsl_saturation on `count` pixels with a 256-entry saturation table.
// Vector kernels on x86-64 only (single precision; 32-bit ARM's vector unit
// flushes denormals).
void shift_hsl_saturation_span(unsigned char* px, std::size_t count, const unsigned char* table);

// scale_yuv_chroma on `count` pixels with a 256-entry chroma table.
void yuv_chroma_span(unsigned char* px, std::size_t count, const unsigned char* table);

}  // namespace qtzq

#endif  // QTZQ_PIXEL_SATURATION_SPANS_H
