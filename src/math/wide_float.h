// A binary floating-point number with a 192-bit significand, computed with
// integer arithmetic only. It carries the portable elementary functions
// (portable_math.h): integer operations give the same bits on every CPU and
// compiler, which the host's floating-point maths library does not.
//
// Every operation truncates its exact result to 192 bits (relative error
// below 2^-190), so the few dozen operations behind one elementary function
// leave its result within about 2^-178 of the true value.
#ifndef QTZQ_MATH_WIDE_FLOAT_H
#define QTZQ_MATH_WIDE_FLOAT_H

#include <cstdint>

namespace qtzq {

struct WideFloat {
    static constexpr int kLimbs = 6;
    static constexpr int kBits = 32 * kLimbs;

    // value = (-1)^negative * 0.limb[0] limb[1] ... (binary) * 2^exponent.
    // limb[0] is the most significant; its top bit is set unless the value
    // is zero (all limbs zero, exponent 0).
    bool negative = false;
    int exponent = 0;
    std::uint32_t limb[kLimbs] = {};

    bool is_zero() const { return limb[0] == 0; }
};

// The value of `count` big-endian limbs read as the binary fraction
// 0.limbs[0] limbs[1] ..., times 2^exponent, truncated to 192 bits.
WideFloat wide_from_limbs(const std::uint32_t* limbs, int count, int exponent, bool negative);

// Exact conversions of finite values.
WideFloat wide_from_double(double value);
WideFloat wide_from_int(std::int64_t value);

WideFloat operator-(const WideFloat& a);
WideFloat operator+(const WideFloat& a, const WideFloat& b);
WideFloat operator-(const WideFloat& a, const WideFloat& b);
WideFloat operator*(const WideFloat& a, const WideFloat& b);

// a * 2^power, exact.
WideFloat wide_scaled(const WideFloat& a, int power);

// a / divisor for a divisor of at least 1.
WideFloat wide_divided(const WideFloat& a, std::uint32_t divisor);

// 1 / a for a value in [0.5, 4) (Newton's iteration from a double seed).
WideFloat wide_reciprocal(const WideFloat& a);

// The double nearest to a, ties to even, with gradual underflow to the
// subnormals and overflow to infinity: one rounding of the whole value.
double wide_to_double(const WideFloat& a);

// True when |a| < 2^(reference_exponent - bits): added to a value of
// exponent reference_exponent it would not reach that value's last `bits` bits.
inline bool wide_negligible(const WideFloat& a, int reference_exponent, int bits) {
    return a.is_zero() || a.exponent < reference_exponent - bits;
}

// product (a_count + b_count limbs) = a * b, all big-endian limb arrays.
void multiply_limbs(const std::uint32_t* a, int a_count, const std::uint32_t* b, int b_count,
                    std::uint32_t* product);

}  // namespace qtzq

#endif  // QTZQ_MATH_WIDE_FLOAT_H
