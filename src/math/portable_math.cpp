// Special values and the final rounding of the portable functions; the
// arithmetic itself is in wide_elementary.cpp and angle_reduction.cpp.
#include "math/portable_math.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "math/angle_reduction.h"
#include "math/pow_exact.h"
#include "math/wide_elementary.h"
#include "math/wide_float.h"

namespace qtzq {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// e^x overflows above ln(2^1024) = 709.78 and rounds to 0 below
// ln(2^-1075) = -745.13; past these bounds the answer is known without
// computing.
constexpr double kExpOverflowBound = 710.0;
constexpr double kExpUnderflowBound = -746.0;

// The same bounds for the exponent y ln x of a power: from 2^10 on.
constexpr int kPowExponentBits = 11;

// The computed value of x^y is within 2^-170 of the true one; a margin of
// 2^-160 around it safely contains the true value.
constexpr int kPowMarginBits = 160;

enum class Parity { kNotInteger, kEven, kOdd };

// For a finite y.
Parity integer_parity(double y) {
    constexpr double kAllEven = 9007199254740992.0;  // 2^53: from here every double is even
    if (std::fabs(y) >= kAllEven) return Parity::kEven;
    const auto whole = static_cast<std::int64_t>(y);
    if (static_cast<double>(whole) != y) return Parity::kNotInteger;
    return (whole & 1) != 0 ? Parity::kOdd : Parity::kEven;
}

std::uint64_t bits_of(double v) {
    std::uint64_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    return bits;
}

// x^y for a finite x > 0 other than 1 and a finite y other than 0.
double positive_power(double x, double y) {
    const WideFloat exponent = wide_from_double(y) * wide_log(x);
    if (exponent.exponent >= kPowExponentBits) return exponent.negative ? 0.0 : kInfinity;
    const WideFloat value = wide_exp(exponent);

    // Both ends of the error interval round alike: that is the answer.
    const WideFloat margin = wide_scaled(value, -kPowMarginBits);
    const double below = wide_to_double(value - margin);
    const double above = wide_to_double(value + margin);
    if (below == above) return below;
    // A midpoint lies in the interval. If x^y is exactly that midpoint the
    // tie goes to the even neighbour; otherwise the value decides.
    if (std::isfinite(above) && power_is_midpoint_above(x, y, below))
        return (bits_of(below) & 1) == 0 ? below : above;
    return wide_to_double(value);
}

}  // namespace

double portable_exp(double x) {
    if (std::isnan(x)) return kNaN;
    if (x > kExpOverflowBound) return kInfinity;
    if (x < kExpUnderflowBound) return 0.0;
    return wide_to_double(wide_exp(wide_from_double(x)));
}

double portable_sin(double x) {
    if (!std::isfinite(x)) return kNaN;
    if (x == 0.0) return x;
    const QuarterTurns turns = reduce_to_quarter_turn(std::fabs(x));
    // sin(q pi/2 + r) = sin r, cos r, -sin r, -cos r for q = 0, 1, 2, 3.
    WideFloat value = (turns.quadrant & 1) != 0 ? wide_cos_reduced(turns.remainder)
                                                : wide_sin_reduced(turns.remainder);
    if ((turns.quadrant >= 2) != (x < 0)) value = -value;
    return wide_to_double(value);
}

double portable_cos(double x) {
    if (!std::isfinite(x)) return kNaN;
    const QuarterTurns turns = reduce_to_quarter_turn(std::fabs(x));
    // cos(q pi/2 + r) = cos r, -sin r, -cos r, sin r for q = 0, 1, 2, 3.
    WideFloat value = (turns.quadrant & 1) != 0 ? wide_sin_reduced(turns.remainder)
                                                : wide_cos_reduced(turns.remainder);
    if (turns.quadrant == 1 || turns.quadrant == 2) value = -value;
    return wide_to_double(value);
}

double portable_pow(double x, double y) {
    if (y == 0.0 || x == 1.0) return 1.0;
    if (std::isnan(x) || std::isnan(y)) return kNaN;
    const double magnitude = std::fabs(x);
    if (std::isinf(y)) {
        if (magnitude == 1.0) return 1.0;  // (-1)^(+-inf)
        return (magnitude < 1.0) == (y < 0.0) ? kInfinity : 0.0;
    }
    const Parity parity = integer_parity(y);
    const bool negative = std::signbit(x) && parity == Parity::kOdd;
    if (magnitude == 0.0 || std::isinf(magnitude)) {
        // 0^y and inf^y: a zero or an infinity, the sign kept for odd y.
        const bool infinite = (magnitude == 0.0) == (y < 0.0);
        const double result = infinite ? kInfinity : 0.0;
        return negative ? -result : result;
    }
    if (x < 0.0 && parity == Parity::kNotInteger) return kNaN;
    const double result = positive_power(magnitude, y);
    return negative ? -result : result;
}

}  // namespace qtzq
