// With x = X 2^a and the midpoint c = C 2^b (X, C odd integers) and
// y = n / 2^k (n an integer, odd when k > 0): x^y = c if and only if X is a
// perfect (2^k)-th power R^(2^k), 2^k divides a, and (R 2^(a/2^k))^n = c.
// All checks are on integers below 2^54; the square roots are exact when
// they have to be.
#include "math/pow_exact.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace qtzq {
namespace {

// value = odd * 2^power.
struct OddScaled {
    std::uint64_t odd;
    std::int64_t power;
};

// Integer and exponent of a finite double's magnitude (for a non-zero
// value the integer is odd).
OddScaled decompose(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    const int field = static_cast<int>((bits >> 52) & 0x7FF);
    OddScaled r{bits & ((std::uint64_t{1} << 52) - 1), field == 0 ? -1074 : field - 1075};
    if (field != 0) r.odd |= std::uint64_t{1} << 52;
    while (r.odd != 0 && (r.odd & 1) == 0) {
        r.odd >>= 1;
        ++r.power;
    }
    return r;
}

// Above every odd part a midpoint can have (54 bits).
constexpr std::uint64_t kOddLimit = std::uint64_t{1} << 54;
// Integer exponents beyond this make any power other than of 1 leave the
// double range.
constexpr std::uint64_t kLargestExponent = std::uint64_t{1} << 20;

// The exact square root of v < 2^53, or 0 if v is not a perfect square.
// (sqrt is correctly rounded, so a perfect square gives its exact root.)
std::uint64_t exact_square_root(std::uint64_t v) {
    const auto root = static_cast<std::uint64_t>(std::sqrt(static_cast<double>(v)));
    return root * root == v ? root : 0;
}

// base^n == c for an integer n (negative when `reciprocal`), 1 <= n <= 2^53.
bool integer_power_is(OddScaled base, std::uint64_t n, bool reciprocal, OddScaled c) {
    if (reciprocal) {
        // Only powers of two have an integer odd part in their reciprocal.
        if (base.odd != 1 || c.odd != 1) return false;
    } else if (base.odd == 1) {
        if (c.odd != 1) return false;
    } else {
        std::uint64_t odd = 1;
        for (std::uint64_t i = 0; i < n; ++i) {
            if (odd > kOddLimit / base.odd) return false;
            odd *= base.odd;
        }
        if (odd != c.odd) return false;
    }
    if (base.power == 0) return c.power == 0;
    if (n > kLargestExponent) return false;
    const std::int64_t power = base.power * static_cast<std::int64_t>(n);
    return (reciprocal ? -power : power) == c.power;
}

}  // namespace

bool power_is_midpoint_above(double x, double y, double below) {
    // The midpoint is (2M + 1) 2^(e - 1) for below = M 2^e, M the raw
    // significand (no trailing zeros stripped).
    std::uint64_t below_bits;
    std::memcpy(&below_bits, &below, sizeof below_bits);
    const int field = static_cast<int>((below_bits >> 52) & 0x7FF);
    std::uint64_t significand = below_bits & ((std::uint64_t{1} << 52) - 1);
    if (field != 0) significand |= std::uint64_t{1} << 52;
    const OddScaled midpoint{2 * significand + 1, (field == 0 ? -1074 : field - 1075) - 1};

    OddScaled base = decompose(x);
    const OddScaled exponent = decompose(y);
    const bool reciprocal = y < 0;
    if (exponent.power >= 0) {
        // An integer exponent n = odd 2^power.
        if (exponent.power > 20 || exponent.odd > (kLargestExponent >> exponent.power))
            return false;
        return integer_power_is(base, exponent.odd << exponent.power, reciprocal, midpoint);
    }
    // y = odd / 2^k: take k exact square roots of the base.
    const std::int64_t k = -exponent.power;
    for (std::int64_t i = 0; i < k && base.odd != 1; ++i) {
        base.odd = exact_square_root(base.odd);
        if (base.odd == 0) return false;
    }
    if (k >= 32) {
        if (base.power != 0) return false;
    } else {
        const std::int64_t divisor = std::int64_t{1} << k;
        if (base.power % divisor != 0) return false;
        base.power /= divisor;
    }
    return integer_power_is(base, exponent.odd, reciprocal, midpoint);
}

}  // namespace qtzq
