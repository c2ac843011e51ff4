// portable_exp, _sin, _cos and _pow give correctly rounded results: checked
// against quadruple precision where the toolchain has it (x86-64), against
// correctly rounded IEEE operations and exact halfway powers everywhere,
// and through bit patterns pinned for every CPU (the armhf run included).
#include <gtest/gtest.h>

#include <math.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "math/double_samples.h"
#include "math/portable_math.h"
#include "math/wide_elementary.h"

#if defined(QTZQ_HAVE_QUADMATH) && defined(__SIZEOF_FLOAT128__) && defined(__x86_64__)
#define QTZQ_QUAD_REFERENCE 1
#include <quadmath.h>
#endif

using namespace qtzq;
using qtzq_test::bits_of;
using qtzq_test::pow2;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

#if defined(__OPTIMIZE__)
constexpr int kSamples = 100000;
#else
constexpr int kSamples = 10000;  // unoptimised (sanitizer) builds
#endif

#if defined(QTZQ_QUAD_REFERENCE)

// The quadruple-precision value rounded to double. (Rounding twice could
// only matter within 2^-113 of a halfway point; the halfway powers tested
// are exact in quadruple precision.)
#define ASSERT_AS_QUAD(ours, quad) ASSERT_EQ(bits_of(ours), bits_of(double(quad)))

TEST(PortableMath, MatchesQuadPrecision) {
    qtzq_test::DoubleSamples s(11);
    for (int i = 0; i < kSamples; ++i) {
        // The library's ranges: blur decays and angles, gamma tables (integer
        // bases, exponents often widened from float), cubes of unit values.
        const double x = s.uniform(-40, 5), angle = s.uniform(0, 20), unit = s.uniform(0, 1);
        const double base = double(s.next_bits() % 256), wide_y = s.uniform(0.01, 10);
        const double y = i % 2 == 0 ? wide_y : double(float(wide_y));
        ASSERT_AS_QUAD(portable_exp(x), expq(x)) << x;
        ASSERT_AS_QUAD(portable_sin(angle), sinq(angle)) << angle;
        ASSERT_AS_QUAD(portable_cos(angle), cosq(angle)) << angle;
        ASSERT_AS_QUAD(portable_pow(base, y), powq(base, y)) << base << " ^ " << y;
        ASSERT_AS_QUAD(portable_pow(unit, 3.0), powq(unit, 3.0)) << unit;
        if (i % 4 != 0) continue;
        // The whole exp range, angles of every magnitude (the reduction is
        // exact), powers far from the library's, and the logarithm under pow.
        const double any_x = s.uniform(-746, 710), any = s.scaled(-1074, 1023);
        const double any_angle = i % 8 == 0 ? any : -any;
        const double any_base = s.scaled(-60, 60), any_y = s.uniform(-50, 50);
        ASSERT_AS_QUAD(portable_exp(any_x), expq(any_x)) << any_x;
        ASSERT_AS_QUAD(portable_sin(any_angle), sinq(any_angle)) << any_angle;
        ASSERT_AS_QUAD(portable_cos(any_angle), cosq(any_angle)) << any_angle;
        ASSERT_AS_QUAD(portable_pow(any_base, any_y), powq(any_base, any_y))
            << any_base << " ^ " << any_y;
        ASSERT_AS_QUAD(wide_to_double(wide_log(any)), logq(any)) << any;
    }
}

#endif  // QTZQ_QUAD_REFERENCE

// M^3 * 2^-54 for odd M whose cube has 54 bits (208065..262143): exactly
// halfway between two doubles, so it rounds to the even one.
double halfway_cube(std::uint64_t m) {
    const std::uint64_t cube = m * m * m;
    return double((cube + 1) % 4 == 0 ? cube + 1 : cube - 1) * pow2(-54);
}

TEST(PortableMath, PowersAgreeWithIEEEOperationsAndRoundTiesToEven) {
    // x^2, x^0.5 and x^-1 are x * x, sqrt(x) and 1 / x, which IEEE rounds
    // correctly on every CPU: subnormals, overflow and ties of x * x included.
    qtzq_test::DoubleSamples s(13);
    for (int i = 0; i < kSamples / 10; ++i) {
        const double x = std::fabs(i % 2 == 0 ? s.any_finite() : s.scaled(-40, 40));
        ASSERT_EQ(bits_of(portable_pow(x, 2.0)), bits_of(x * x)) << x;
        ASSERT_EQ(bits_of(portable_pow(x, 0.5)), bits_of(std::sqrt(x))) << x;
        ASSERT_EQ(bits_of(portable_pow(-x, -1.0)), bits_of(-1.0 / x)) << x;
    }
    for (std::uint64_t m = 208065; m < 262144; m += 2) {
        ASSERT_EQ(bits_of(portable_pow(double(m) * pow2(-18), 3.0)), bits_of(halfway_cube(m)));
        ASSERT_EQ(bits_of(portable_pow(double(m * m), 1.5)), bits_of(halfway_cube(m) * pow2(54)));
    }
    for (int n = -1074; n <= 1023; ++n) ASSERT_EQ(portable_pow(2.0, n), pow2(n)) << n;
    EXPECT_EQ(portable_pow(41.0, 10.0), 13422659310152400.0);  // 41^10 ends in ...401
    EXPECT_EQ(portable_pow(43046721.0, 0.25), 81.0);
    EXPECT_EQ(bits_of(portable_pow(pow2(-43), 25.0)), bits_of(0.0));  // halfway to 2^-1074
    EXPECT_EQ(bits_of(portable_pow(-pow2(-43), 25.0)), bits_of(-0.0));
}

// Bit patterns every CPU must reproduce where the golden digests do not
// reach: the ends of exp's range, and angle reductions of huge arguments
// (the hardest among all doubles gives cos = -4.687e-19).
TEST(PortableMath, PinnedResultsAreTheSameOnEveryCPU) {
    const struct {
        double (*f)(double);
        double x;
        std::uint64_t bits;
    } pinned[] = {
        {portable_exp, 0x1.62cp+9, 0x7FE81E9B4B52D0C9ull},
        {portable_exp, -0x1.748p+9, 0x0000000000000001ull},
        {portable_sin, 0x1.0f0cf064dd592p+73, 0xBFEB453AB76BF397ull},  // 1e22
        {portable_cos, 0x1.6ac5b262ca1ffp+849, 0xBC214AE72E6BA22Full},
        {portable_cos, 0x1.7e43c8800759cp+996, 0xBFE2699022ADC4C1ull},  // 1e300
    };
    for (const auto& p : pinned) EXPECT_EQ(bits_of(p.f(p.x)), p.bits) << p.x;
}

TEST(PortableMath, SpecialValuesFollowTheCStandard) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(portable_exp(nan)));
    EXPECT_EQ(portable_exp(kInf), kInf);
    EXPECT_EQ(portable_exp(709.79), kInf);
    EXPECT_EQ(bits_of(portable_exp(-745.2)), 0u);
    EXPECT_EQ(bits_of(portable_exp(-kInf)), 0u);
    EXPECT_EQ(portable_exp(-0.0), 1.0);
    for (const double x : {nan, kInf, -kInf}) {
        EXPECT_TRUE(std::isnan(portable_sin(x)));
        EXPECT_TRUE(std::isnan(portable_cos(x)));
    }
    EXPECT_EQ(bits_of(portable_sin(-0.0)), bits_of(-0.0));
    EXPECT_EQ(portable_cos(-0.0), 1.0);

    for (const double v : {nan, kInf, -kInf, -0.0, -3.5}) {
        EXPECT_EQ(portable_pow(v, 0.0), 1.0);
        EXPECT_EQ(portable_pow(1.0, v), 1.0);
    }
    EXPECT_TRUE(std::isnan(portable_pow(nan, 2.0)));
    EXPECT_TRUE(std::isnan(portable_pow(-8.0, 1.0 / 3)));
    const struct {
        double x, y, result;
    } cases[] = {
        {0.0, 2.5, 0.0},      {-0.0, 3.0, -0.0},     {-0.0, 2.0, 0.0},    {-0.0, -1.0, -kInf},
        {0.0, -0.5, kInf},    {0.0, -kInf, kInf},    {0.0, kInf, 0.0},    {-1.0, kInf, 1.0},
        {-0.5, -kInf, kInf},  {-0.5, kInf, 0.0},     {2.0, -kInf, 0.0},   {-2.0, kInf, kInf},
        {-kInf, -3.0, -0.0},  {-kInf, -2.0, 0.0},    {-kInf, 3.0, -kInf}, {-kInf, 2.5, kInf},
        {kInf, -0.5, 0.0},    {-2.0, 3.0, -8.0},     {-2.0, -2.0, 0.25},  {-3.0, 1e300, kInf},
        {-10.0, 309.0, -kInf}, {10.0, -400.0, 0.0},
        {0x1.fffffffffffffp+1023, 1.0, 0x1.fffffffffffffp+1023},
    };
    for (const auto& c : cases)
        EXPECT_EQ(bits_of(portable_pow(c.x, c.y)), bits_of(c.result)) << c.x << " ^ " << c.y;
}

// CSharp's kernel keeps the C library's expf; its arguments are the
// integers -4..4, where expf must be (and is) the correctly rounded value.
TEST(HostExpf, IsCorrectlyRoundedOnTheSharpeningKernelsIntegers) {
    for (int k = -4; k <= 4; ++k) EXPECT_EQ(expf(float(k)), float(portable_exp(k))) << k;
}

}  // namespace
