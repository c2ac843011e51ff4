// WideFloat, the integer arithmetic under the portable maths: one correct
// rounding to double (ties to even, gradual underflow, overflow), arithmetic
// checked against IEEE operations (correctly rounded on every CPU), and the
// built-in constants checked against their series.
#include <gtest/gtest.h>

#include <cfloat>
#include <cstdint>
#include <initializer_list>
#include <limits>

#include "math/double_samples.h"
#include "math/wide_elementary.h"
#include "math/wide_float.h"

using qtzq::WideFloat;
using qtzq_test::bits_of;
using qtzq_test::pow2;

namespace {

WideFloat wide(double value) { return qtzq::wide_from_double(value); }

// A sum of doubles, exact in 192 bits, times 2^scale, rounded once.
std::uint64_t rounded(std::initializer_list<double> parts, int scale = 0) {
    WideFloat sum;
    for (const double part : parts) sum = sum + wide(part);
    return bits_of(qtzq::wide_to_double(wide_scaled(sum, scale)));
}

TEST(WideFloat, RoundsOnceToNearestTiesToEven) {
    const double ulp = pow2(-52), unit = pow2(-1074);
    EXPECT_EQ(rounded({1.0, ulp / 2}), bits_of(1.0));
    EXPECT_EQ(rounded({1.0, ulp, ulp / 2}), bits_of(1.0 + 2 * ulp));
    EXPECT_EQ(rounded({1.0, ulp / 2, pow2(-180)}), bits_of(1.0 + ulp));
    EXPECT_EQ(rounded({1.0, -ulp / 2, -ulp / 4}), bits_of(1.0 - ulp));  // spacing halves below 1
    EXPECT_EQ(rounded({-1.0, -ulp / 2}), bits_of(-1.0));
    // Subnormals: 0.5, 1.5, 1.25 units; halfway below the smallest normal.
    EXPECT_EQ(rounded({1.0}, -1075), bits_of(0.0));
    EXPECT_EQ(rounded({-1.0}, -5000), bits_of(-0.0));
    EXPECT_EQ(rounded({1.0, pow2(-40)}, -1075), bits_of(unit));
    EXPECT_EQ(rounded({3.0}, -1075), bits_of(2 * unit));
    EXPECT_EQ(rounded({5.0}, -1076), bits_of(unit));
    EXPECT_EQ(rounded({9007199254740991.0}, -1075), bits_of(DBL_MIN));
    // Overflow starts halfway above the largest double.
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(rounded({DBL_MAX, pow2(970)}), bits_of(inf));
    EXPECT_EQ(rounded({DBL_MAX, pow2(970), -pow2(900)}), bits_of(DBL_MAX));
    EXPECT_EQ(rounded({1.0}, 5000), bits_of(inf));
}

TEST(WideFloat, ArithmeticRoundsExactlyAsIEEEOperations) {
    qtzq_test::DoubleSamples samples(2);
    for (int i = 0; i < 20000; ++i) {
        // Every magnitude, and operands near 1 whose bits overlap.
        const double a = i % 2 == 0 ? samples.any_finite() : samples.scaled(-60, 60);
        const double b = i % 2 == 0 ? samples.any_finite() : -samples.scaled(-60, 60);
        ASSERT_EQ(bits_of(qtzq::wide_to_double(wide(a))), bits_of(a));
        ASSERT_EQ(bits_of(qtzq::wide_to_double(wide(a) * wide(b))), bits_of(a * b)) << a << b;
        ASSERT_EQ(bits_of(qtzq::wide_to_double(wide(a) - wide(b))), bits_of(a - b)) << a << b;
        const std::uint32_t n = 1 + std::uint32_t(samples.next_bits() % 4000000000u);
        ASSERT_EQ(bits_of(qtzq::wide_to_double(wide_divided(wide(a), n))), bits_of(a / n));
        const double c = samples.uniform(0.5, 4.0);
        ASSERT_EQ(bits_of(qtzq::wide_to_double(wide_reciprocal(wide(c)))), bits_of(1.0 / c));
    }
}

// Sums over n >= 1 of u^n / n = -ln(1 - u) for u = 2^-k, and (Machin)
// pi / 4 = 4 atan(1/5) - atan(1/239), atan(1/q) = sum of (-1)^k / ((2k+1) q^(2k+1)).
WideFloat minus_log_one_minus(int k) {
    WideFloat sum, power = wide(1.0);
    for (std::uint32_t n = 1; n < 400; ++n) {
        power = wide_scaled(power, -k);
        sum = sum + wide_divided(power, n);
    }
    return sum;
}

WideFloat atan_of_reciprocal(std::uint32_t q) {
    WideFloat sum, power = wide_divided(wide(1.0), q);
    for (std::uint32_t k = 0; k < 100; ++k, power = wide_divided(power, q * q))
        sum = sum + (k % 2 == 0 ? wide_divided(power, 2 * k + 1) : -wide_divided(power, 2 * k + 1));
    return sum;
}

// The series add up a few hundred truncations: agreement to 2^-180.
bool agree(const WideFloat& a, const WideFloat& b) {
    return qtzq::wide_negligible(a - b, b.exponent, 180);
}

TEST(WideFloat, BuiltInConstantsAgreeWithTheirSeries) {
    EXPECT_TRUE(agree(qtzq::wide_ln2(), minus_log_one_minus(1)));
    for (int k = 2; k <= 8; ++k)
        EXPECT_TRUE(agree(qtzq::wide_minus_log_factor(k), minus_log_one_minus(k))) << k;
    const WideFloat quarter_pi = wide_scaled(atan_of_reciprocal(5), 2) - atan_of_reciprocal(239);
    EXPECT_TRUE(agree(qtzq::wide_half_pi(), wide_scaled(quarter_pi, 1)));
}

}  // namespace
