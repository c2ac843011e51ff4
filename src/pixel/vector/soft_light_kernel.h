// Body of the soft light kernel declared in soft_light.h. Each including
// file defines QTZQ_KERNEL_SET (the namespace, named after the instruction
// set its compile flags select) and QTZQ_KERNEL_VECTOR_BYTES, and includes
// this header once.
//
// Integer work only, one 16-bit lane per byte of the pixels (alpha bytes
// are computed too and then put back). soft_light_levels multiplies levels
// a, b and 255 - a, 255 - b, all at most 255, and a by s - m, which lies in
// 1..255 for every pair of levels (the tests check all of them): every
// product is below 2^16, so the unsigned 16-bit lanes hold the reference's
// int products exactly, and its shifts are of non-negative values.
// Everything has internal linkage apart from the entry point.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "pixel/vector/soft_light.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

constexpr std::size_t kBytes = QTZQ_KERNEL_VECTOR_BYTES / 2;  // bytes of pixels per vector
typedef std::uint16_t U16 __attribute__((vector_size(QTZQ_KERNEL_VECTOR_BYTES)));
typedef unsigned char U8 __attribute__((vector_size(kBytes)));

static_assert(kBytes % 4 == 0, "whole pixels per vector");

// soft_light_levels on every lane.
U16 soft_light_lanes(U16 a, U16 b) {
    const U16 m = (a * b) >> 8;
    const U16 s = 255 - (((255 - a) * (255 - b)) >> 8);
    return m + ((a * (s - m)) >> 8);
}

// Byte i of a vector of pixels is an alpha byte when i % 4 == 3.
U16 alpha_lanes() {
    U16 mask;
    for (std::size_t i = 0; i < kBytes; ++i) mask[i] = i % 4 == 3 ? 0xFFFF : 0;
    return mask;
}

void soft_light_block(unsigned char* px, const unsigned char* blend, U16 alpha) {
    U8 base8, blend8;
    std::memcpy(&base8, px, kBytes);
    std::memcpy(&blend8, blend, kBytes);
    const U16 base = __builtin_convertvector(base8, U16);
    const U16 lit = soft_light_lanes(base, __builtin_convertvector(blend8, U16));
    const U8 out = __builtin_convertvector((lit & ~alpha) | (base & alpha), U8);
    std::memcpy(px, &out, kBytes);
}

}  // namespace

void soft_light_pixels(unsigned char* px, const unsigned char* blend, std::size_t count) {
    const U16 alpha = alpha_lanes();
    const std::size_t bytes = count * 4, whole = bytes - bytes % kBytes;
    for (std::size_t i = 0; i < whole; i += kBytes) soft_light_block(px + i, blend + i, alpha);
    const std::size_t rest = bytes - whole;
    if (rest == 0) return;
    // The last partial vector through padded copies: nothing past either
    // span is read or written.
    unsigned char base[kBytes] = {}, other[kBytes] = {};
    std::memcpy(base, px + whole, rest);
    std::memcpy(other, blend + whole, rest);
    soft_light_block(base, other, alpha);
    std::memcpy(px + whole, base, rest);
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
