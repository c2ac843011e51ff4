// The span kernels behind saturation_spans.h, one source each compiled per
// instruction set: the matrix (integer) for the portable vector unit of
// every build and again for AVX2 on x86-64 (NEON on 32-bit ARM); the YUV chroma step (single
// precision) for SSE2 and AVX2 on x86-64 only.
#ifndef QTZQ_PIXEL_VECTOR_SATURATION_VECTORS_H
#define QTZQ_PIXEL_VECTOR_SATURATION_VECTORS_H

#include <cstddef>

namespace qtzq {

// Whether every row of the matrix, applied to bytes 0..255, keeps each
// partial sum within the signed 32-bit range: the condition for the 32-bit
// matrix kernels.
bool matrix_sums_fit_32_bits(const int* matrix);

// Chroma table entries as the float offsets from zero chroma that the
// conversion back to RGB reads: float(table[i] - 128).
struct ChromaOffsets {
    float offset[256];
};
ChromaOffsets chroma_offsets(const unsigned char* table);

namespace portable {
void saturation_matrix_pixels(unsigned char* px, std::size_t count, const int* matrix);
}  // namespace portable
namespace neon {
void saturation_matrix_pixels(unsigned char* px, std::size_t count, const int* matrix);
}  // namespace neon
namespace sse2 {
void yuv_chroma_pixels(unsigned char* px, std::size_t count, const ChromaOffsets& offsets);
}  // namespace sse2
namespace avx2 {
void saturation_matrix_pixels(unsigned char* px, std::size_t count, const int* matrix);
void yuv_chroma_pixels(unsigned char* px, std::size_t count, const ChromaOffsets& offsets);
}  // namespace avx2

}  // namespace qtzq

#endif  // QTZQ_PIXEL_VECTOR_SATURATION_VECTORS_H
