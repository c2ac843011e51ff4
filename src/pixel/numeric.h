// Conversions between floating point, wide integers and bytes, written so
// that every input gives a defined result that is the same on every CPU.
//
// The pixel arithmetic relies on three conversions that plain casts cannot
// express without undefined behaviour for some inputs:
//   * truncation toward zero to a signed 32-bit integer, saturating at the
//     limits (NaN gives 0), as the target's float-to-int instruction does;
//   * truncation toward zero to an unsigned 32-bit integer, where anything
//     negative (and NaN) gives 0 and values past 2^32 - 1 saturate;
//   * keeping the low 8 bits of an integer ("stored as a byte").
// Every byte result then either keeps those low 8 bits or clamps to 0..255;
// the helper names say which.
#ifndef QTZQ_PIXEL_NUMERIC_H
#define QTZQ_PIXEL_NUMERIC_H

#include <cstdint>

namespace qtzq {

// Limits of the signed and unsigned 32-bit conversions, as doubles.
constexpr double kInt32Low = -2147483648.0;
constexpr double kInt32High = 2147483647.0;
constexpr double kUint32High = 4294967295.0;

// 0..255, values outside clamp to the nearer end.
inline unsigned char clamp_byte(long long value) {
    if (value < 0) return 0;
    if (value > 255) return 255;
    return static_cast<unsigned char>(value);
}

// Low 8 bits of an integer, two's complement (-1 gives 255, 256 gives 0).
inline unsigned char low_byte(long long value) {
    return static_cast<unsigned char>(static_cast<unsigned long long>(value) & 0xFFu);
}

// Low 32 bits of an integer read as a signed 32-bit value (two's
// complement), written without an implementation-defined conversion.
inline std::int32_t low_int32(long long value) {
    const std::uint32_t bits = static_cast<std::uint32_t>(static_cast<unsigned long long>(value));
    if (bits <= 0x7FFFFFFFu) return static_cast<std::int32_t>(bits);
    return static_cast<std::int32_t>(static_cast<long long>(bits) - 0x100000000LL);
}

// Truncation toward zero to a signed 32-bit integer; saturates outside the
// int32 range, NaN gives 0.
inline std::int32_t truncate_int(double value) {
    if (!(value == value)) return 0;
    if (value <= kInt32Low) return INT32_MIN;
    if (value >= kInt32High) return INT32_MAX;
    return static_cast<std::int32_t>(value);
}

// Truncation toward zero to an unsigned 32-bit integer: negative values and
// NaN give 0, values of 2^32 - 1 or more saturate.
inline std::uint32_t truncate_unsigned(double value) {
    if (!(value > 0.0)) return 0;
    if (value >= kUint32High) return UINT32_MAX;
    return static_cast<std::uint32_t>(value);
}

// Unsigned truncation stored as a byte: the low 8 bits of truncate_unsigned.
inline unsigned char truncate_low_byte(double value) {
    return low_byte(truncate_unsigned(value));
}

// Truncation toward zero, then clamped to 0..255 (NaN gives 0).
inline unsigned char truncate_clamp_byte(double value) {
    return clamp_byte(truncate_int(value));
}

// `long` parameters: long is 32 bits on the target platform. Wider values
// (possible only where long has 64 bits) are clamped to the 32-bit range so
// that every platform computes the same; later arithmetic on the result is
// done in long long and cannot overflow.
inline long long target_long(long value) {
    const long long wide = value;
    if (wide < INT32_MIN) return INT32_MIN;
    if (wide > INT32_MAX) return INT32_MAX;
    return wide;
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_NUMERIC_H
