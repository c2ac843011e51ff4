// Dispatch of the saturation spans to the vector kernels or the per-pixel
// reference.
#include "pixel/saturation_spans.h"

#include <cstdint>
#include <cstdlib>

#include "pixel/image_walk.h"
#include "pixel/saturation_kernels.h"
#include "pixel/vector/hsl_shift.h"
#include "pixel/vector/saturation_vectors.h"
#include "simd/vector_unit.h"

namespace qtzq {

bool matrix_sums_fit_32_bits(const int* matrix) {
    for (int row = 0; row < 3; ++row) {
        long long bound = 0;
        for (int column = 0; column < 3; ++column)
            bound += std::llabs(static_cast<long long>(matrix[3 * row + column])) * 255;
        if (bound > INT32_MAX) return false;
    }
    return true;
}

ChromaOffsets chroma_offsets(const unsigned char* table) {
    ChromaOffsets offsets;
    for (int i = 0; i < 256; ++i) offsets.offset[i] = float(table[i] - 128);
    return offsets;
}

void saturation_matrix_span(unsigned char* px, std::size_t count, const int* matrix) {
    if (integer_fast_paths_enabled() && matrix_sums_fit_32_bits(matrix)) {
#if defined(QTZQ_X86_KERNELS)
        if (active_vector_unit() == VectorUnit::kAvx2)
            return avx2::saturation_matrix_pixels(px, count, matrix);
#endif
#if defined(QTZQ_NEON_KERNELS)
        if (active_vector_unit() == VectorUnit::kNeon) return neon::saturation_matrix_pixels(px, count, matrix);
#endif
        return portable::saturation_matrix_pixels(px, count, matrix);
    }
    for (std::size_t i = 0; i < count; ++i) apply_saturation_matrix(px + i * kBytesPerPixel, matrix);
}

void shift_hsl_saturation_span(unsigned char* px, std::size_t count, const unsigned char* table) {
#if defined(QTZQ_X86_KERNELS)
    const VectorUnit unit = active_vector_unit();
    if (unit == VectorUnit::kAvx2) return avx2::shift_hsl_saturation_span(px, count, table);
    if (unit == VectorUnit::kSse2) return sse2::shift_hsl_saturation_span(px, count, table);
#endif
    for (std::size_t i = 0; i < count; ++i) shift_hsl_saturation(px + i * kBytesPerPixel, table);
}

void yuv_chroma_span(unsigned char* px, std::size_t count, const unsigned char* table) {
#if defined(QTZQ_X86_KERNELS)
    const VectorUnit unit = active_vector_unit();
    if (unit == VectorUnit::kAvx2) return avx2::yuv_chroma_pixels(px, count, chroma_offsets(table));
    if (unit == VectorUnit::kSse2) return sse2::yuv_chroma_pixels(px, count, chroma_offsets(table));
#endif
    for (std::size_t i = 0; i < count; ++i) scale_yuv_chroma(px + i * kBytesPerPixel, table);
}

}  // namespace qtzq
