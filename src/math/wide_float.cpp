// WideFloat: sign, exponent and six 32-bit limbs, with the few operations
// the elementary functions need. Pure integer arithmetic; the only
// floating-point operation is the IEEE division that seeds the reciprocal.
#include "math/wide_float.h"

#include <cstring>
#include <utility>

namespace qtzq {
namespace {

using Limb = std::uint32_t;
constexpr int kLimbs = WideFloat::kLimbs;

// Sums work on one headroom limb (for a carry) and two guard limbs.
constexpr int kSumLimbs = kLimbs + 3;

constexpr std::uint64_t kMantissaMask = (std::uint64_t{1} << 52) - 1;
constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;
constexpr std::uint64_t kInfinityBits = std::uint64_t{0x7FF} << 52;
constexpr int kLowestGridExponent = -1074;  // weight of the smallest subnormal
constexpr int kHighestExponent = 1023;
constexpr int kLowestNormalExponent = -1022;

// For v != 0, by halving the search range.
int leading_zeros(Limb v) {
    int n = 0;
    for (int width = 16; width > 0; width /= 2) {
        if ((v >> (32 - width)) == 0) {
            n += width;
            v <<= width;
        }
    }
    return n;
}

int bit_length(std::uint64_t v) {
    int n = 0;
    for (; v != 0; v >>= 1) ++n;
    return n;
}

// Compares two significands of kLimbs limbs.
int compare_limbs(const Limb* a, const Limb* b) {
    for (int i = 0; i < kLimbs; ++i) {
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    }
    return 0;
}

// Writes src (kLimbs limbs) shifted right by `shift` bits into dst[1..count-1];
// bits falling off the end are dropped.
void shift_right_into(const Limb* src, int shift, Limb* dst, int count) {
    const int words = shift / 32;
    const int bits = shift % 32;
    for (int i = 0; i < kLimbs; ++i) {
        const int at = 1 + i + words;
        if (at >= count) break;
        dst[at] |= src[i] >> bits;
        if (bits != 0 && at + 1 < count) dst[at + 1] |= src[i] << (32 - bits);
    }
}

void add_in_place(Limb* x, const Limb* y, int count) {
    std::uint64_t carry = 0;
    for (int i = count - 1; i >= 0; --i) {
        const std::uint64_t sum = std::uint64_t{x[i]} + y[i] + carry;
        x[i] = static_cast<Limb>(sum);
        carry = sum >> 32;
    }
}

// x -= y where x >= y.
void subtract_in_place(Limb* x, const Limb* y, int count) {
    std::uint64_t borrow = 0;
    for (int i = count - 1; i >= 0; --i) {
        const std::uint64_t subtrahend = std::uint64_t{y[i]} + borrow;
        borrow = std::uint64_t{x[i]} < subtrahend ? 1 : 0;
        x[i] = static_cast<Limb>((std::uint64_t{x[i]} + (borrow << 32)) - subtrahend);
    }
}

WideFloat from_unsigned(std::uint64_t magnitude, int power, bool negative) {
    const Limb limbs[2] = {static_cast<Limb>(magnitude >> 32), static_cast<Limb>(magnitude)};
    return wide_from_limbs(limbs, 2, 64 + power, negative);
}

// The double q * 2^grid, for a q of at most 54 bits that is exactly
// representable at that grid (as the rounding below guarantees).
double compose_double(std::uint64_t q, int grid, bool negative) {
    std::uint64_t bits = 0;
    if (q != 0) {
        const int top = bit_length(q) - 1;
        const int exponent = grid + top;
        if (exponent > kHighestExponent) {
            bits = kInfinityBits;
        } else if (exponent < kLowestNormalExponent) {
            bits = q << (grid - kLowestGridExponent);  // subnormal
        } else {
            const std::uint64_t mantissa = top <= 52 ? q << (52 - top) : q >> (top - 52);
            bits = (std::uint64_t(exponent + kHighestExponent) << 52) | (mantissa & kMantissaMask);
        }
    }
    if (negative) bits |= kSignBit;
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

}  // namespace

WideFloat wide_from_limbs(const Limb* limbs, int count, int exponent, bool negative) {
    int first = 0;
    while (first < count && limbs[first] == 0) ++first;
    if (first == count) return WideFloat{};
    const int shift = leading_zeros(limbs[first]);
    const auto at = [&](int i) { return i < count ? limbs[i] : Limb{0}; };

    WideFloat r;
    r.negative = negative;
    r.exponent = exponent - 32 * first - shift;
    for (int i = 0; i < kLimbs; ++i) {
        const Limb high = at(first + i);
        r.limb[i] = shift == 0 ? high : (high << shift) | (at(first + i + 1) >> (32 - shift));
    }
    return r;
}

void multiply_limbs(const Limb* a, int a_count, const Limb* b, int b_count, Limb* product) {
    // Schoolbook, big-endian: limb i of a times limb j of b lands in i + j + 1,
    // its carry in i + j.
    for (int i = 0; i < a_count + b_count; ++i) product[i] = 0;
    for (int i = a_count - 1; i >= 0; --i) {
        std::uint64_t carry = 0;
        for (int j = b_count - 1; j >= 0; --j) {
            const std::uint64_t t = std::uint64_t{a[i]} * b[j] + product[i + j + 1] + carry;
            product[i + j + 1] = static_cast<Limb>(t);
            carry = t >> 32;
        }
        product[i] = static_cast<Limb>(carry);
    }
}

WideFloat wide_from_double(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    const bool negative = (bits & kSignBit) != 0;
    const int field = static_cast<int>((bits >> 52) & 0x7FF);
    const std::uint64_t fraction = bits & kMantissaMask;
    if (field == 0) return from_unsigned(fraction, kLowestGridExponent, negative);
    return from_unsigned(fraction | (std::uint64_t{1} << 52), field - 1075, negative);
}

WideFloat wide_from_int(std::int64_t value) {
    // The magnitude in unsigned arithmetic, so that the most negative value
    // does not overflow.
    const std::uint64_t magnitude =
        value < 0 ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
    return from_unsigned(magnitude, 0, value < 0);
}

WideFloat operator-(const WideFloat& a) {
    WideFloat r = a;
    if (!r.is_zero()) r.negative = !r.negative;
    return r;
}

WideFloat operator+(const WideFloat& a, const WideFloat& b) {
    if (a.is_zero()) return b;
    if (b.is_zero()) return a;
    const WideFloat* big = &a;
    const WideFloat* small = &b;
    if (b.exponent > a.exponent || (b.exponent == a.exponent && compare_limbs(b.limb, a.limb) > 0))
        std::swap(big, small);

    // Both significands one limb down, leaving a headroom limb for a carry.
    Limb x[kSumLimbs] = {};
    Limb y[kSumLimbs] = {};
    shift_right_into(big->limb, 0, x, kSumLimbs);
    shift_right_into(small->limb, big->exponent - small->exponent, y, kSumLimbs);
    if (big->negative == small->negative) {
        add_in_place(x, y, kSumLimbs);
    } else {
        subtract_in_place(x, y, kSumLimbs);
    }
    return wide_from_limbs(x, kSumLimbs, big->exponent + 32, big->negative);
}

WideFloat operator-(const WideFloat& a, const WideFloat& b) { return a + (-b); }

WideFloat operator*(const WideFloat& a, const WideFloat& b) {
    if (a.is_zero() || b.is_zero()) return WideFloat{};
    Limb product[2 * kLimbs];
    multiply_limbs(a.limb, kLimbs, b.limb, kLimbs, product);
    return wide_from_limbs(product, 2 * kLimbs, a.exponent + b.exponent, a.negative != b.negative);
}

WideFloat wide_scaled(const WideFloat& a, int power) {
    WideFloat r = a;
    if (!r.is_zero()) r.exponent += power;
    return r;
}

WideFloat wide_divided(const WideFloat& a, std::uint32_t divisor) {
    // Long division, one limb further than the significand so that the
    // quotient keeps its full 192 bits after normalisation.
    Limb quotient[kLimbs + 1];
    std::uint64_t remainder = 0;
    for (int i = 0; i <= kLimbs; ++i) {
        const std::uint64_t current = (remainder << 32) | (i < kLimbs ? a.limb[i] : 0u);
        quotient[i] = static_cast<Limb>(current / divisor);
        remainder = current % divisor;
    }
    return wide_from_limbs(quotient, kLimbs + 1, a.exponent, a.negative);
}

WideFloat wide_reciprocal(const WideFloat& a) {
    // The seed is a correctly rounded IEEE division, the same on every CPU;
    // each step z + z (1 - a z) doubles the correct bits: 53, 106, 212.
    WideFloat z = wide_from_double(1.0 / wide_to_double(a));
    const WideFloat one = wide_from_int(1);
    for (int step = 0; step < 2; ++step) z = z + z * (one - a * z);
    return z;
}

double wide_to_double(const WideFloat& a) {
    if (a.is_zero()) return a.negative ? -0.0 : 0.0;
    // The value lies in [2^(e-1), 2^e). Its last kept bit has the weight
    // 2^grid: 53 bits for a normal double, fewer below 2^-1022.
    const int e = a.exponent;
    const int grid = e - 53 > kLowestGridExponent ? e - 53 : kLowestGridExponent;
    const int kept_bits = e - grid;  // 53 or fewer; zero or negative far below 2^-1074

    // The top 64 bits hold the kept bits and the rounding bit whenever any
    // bit is kept; the rest only decides between a tie and more.
    const std::uint64_t top = (std::uint64_t{a.limb[0]} << 32) | a.limb[1];
    bool rest_nonzero = false;
    for (int i = 2; i < kLimbs; ++i) rest_nonzero = rest_nonzero || a.limb[i] != 0;

    std::uint64_t kept = 0;
    bool round_bit = false;
    bool sticky = rest_nonzero;
    if (kept_bits >= 1) {
        kept = top >> (64 - kept_bits);
        round_bit = ((top >> (63 - kept_bits)) & 1) != 0;
        sticky = sticky || (top & ((std::uint64_t{1} << (63 - kept_bits)) - 1)) != 0;
    } else if (kept_bits == 0) {
        // Between 2^-1075 and 2^-1074: the leading bit is the rounding bit.
        round_bit = true;
        sticky = sticky || (top << 1) != 0;
    }
    if (round_bit && (sticky || (kept & 1) != 0)) ++kept;
    return compose_double(kept, grid, a.negative);
}

}  // namespace qtzq
