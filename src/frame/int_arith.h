// Integer conversions with the results of the target CPU, written without
// undefined behaviour.
//
// The frame and collage readers turn values from outside files into ints:
// float-to-int truncation of values that may be huge or NaN, and sums that
// may leave the int range. C++ leaves those undefined; the library defines
// them as 32-bit ARM does: float-to-int conversion saturates (NaN gives 0)
// and integer sums wrap modulo 2^32.
#ifndef QTZQ_FRAME_INT_ARITH_H
#define QTZQ_FRAME_INT_ARITH_H

#include <cstdint>
#include <limits>

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

// v truncated toward zero; beyond the int range the nearest int, NaN 0.
// Floats convert to double exactly, so this serves both precisions.
inline int trunc_to_int(double v) {
    constexpr double kAboveMax = 2147483648.0;   // 2^31
    constexpr double kBelowMin = -2147483649.0;  // -2^31 - 1
    if (v != v) return 0;
    if (v >= kAboveMax) return std::numeric_limits<int>::max();
    if (v <= kBelowMin) return std::numeric_limits<int>::min();
    return static_cast<int>(v);
}

}  // namespace qtzq

#endif  // QTZQ_FRAME_INT_ARITH_H
