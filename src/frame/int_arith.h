// Integer conversions with the results of the target CPU, written without
// undefined behaviour.
//
// The frame and collage readers turn values from outside files into ints:
// sums that may leave the int range. C++ leaves those undefined; the library
// defines them as 32-bit ARM does: integer sums wrap modulo 2^32. (Float-to-
// int truncation is pixel/numeric.h's truncate_int, saturating, NaN 0.)
#ifndef QTZQ_FRAME_INT_ARITH_H
#define QTZQ_FRAME_INT_ARITH_H

#include <cstdint>
#include <limits>

#include "pixel/numeric.h"

namespace qtzq {

// The int whose two's complement bits are `bits`.
inline int int_from_bits(std::uint32_t bits) {
    constexpr std::uint32_t kSignBit = 0x80000000u;
    if (bits < kSignBit) return static_cast<int>(bits);
    return static_cast<int>(bits - kSignBit) + std::numeric_limits<int>::min();
}

// a + b and a - b modulo 2^32.
inline int wrapping_add(int a, int b) {
    return int_from_bits(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
inline int wrapping_sub(int a, int b) {
    return int_from_bits(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

}  // namespace qtzq

#endif  // QTZQ_FRAME_INT_ARITH_H
