// The soft light of two images at full opacity, byte by byte: one kernel
// source (soft_light_kernel.h) compiled for the portable vector unit and, on
// x86-64, again for AVX2 (on 32-bit ARM, for NEON); soft_light_span.cpp picks the one to run.
#ifndef QTZQ_PIXEL_VECTOR_SOFT_LIGHT_H
#define QTZQ_PIXEL_VECTOR_SOFT_LIGHT_H

#include <cstddef>

namespace qtzq {

namespace portable {
void soft_light_pixels(unsigned char* px, const unsigned char* blend, std::size_t count);
}  // namespace portable
namespace avx2 {
void soft_light_pixels(unsigned char* px, const unsigned char* blend, std::size_t count);
}  // namespace avx2
namespace neon {
void soft_light_pixels(unsigned char* px, const unsigned char* blend, std::size_t count);
}  // namespace neon

}  // namespace qtzq

#endif  // QTZQ_PIXEL_VECTOR_SOFT_LIGHT_H
