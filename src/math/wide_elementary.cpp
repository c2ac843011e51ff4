// Series evaluations in 192-bit arithmetic. Each series runs until its next
// term no longer reaches the last bit of the sum, so every CPU performs the
// same operations in the same order.
#include "math/wide_elementary.h"

#include <cstdint>

namespace qtzq {
namespace {

using Limb = std::uint32_t;

constexpr int kSeriesCutoff = WideFloat::kBits + 4;

// exp(r) = exp(r / 2^8)^(2^8): the series of the small argument converges
// in about fifteen terms; the eight squarings cost eight bits of the 192.
constexpr int kExpHalvings = 8;

// 1 / ln 2, only to pick the multiple of ln 2 that exp takes out; any
// nearby integer would do.
constexpr double kLog2E = 1.4426950408889634;

// A constant's significand (as in WideFloat, 256 bits) and exponent.
struct Constant {
    int exponent;
    Limb limbs[8];
};
static_assert(sizeof(Constant::limbs) / sizeof(Limb) >= WideFloat::kLimbs,
              "constants need the full working precision");

WideFloat to_wide(const Constant& c) { return wide_from_limbs(c.limbs, 8, c.exponent, false); }

// ln 2 = 0.B17217F7... and pi/2 = 2 * 0.C90FDAA2... (hexadecimal digits).
constexpr Constant kLn2 = {0, {0xB17217F7, 0xD1CF79AB, 0xC9E3B398, 0x03F2F6AF,
                               0x40F34326, 0x7298B62D, 0x8A0D175B, 0x8BAAFA2B}};
constexpr Constant kHalfPi = {1, {0xC90FDAA2, 0x2168C234, 0xC4C6628B, 0x80DC1CD1,
                                  0x29024E08, 0x8A67CC74, 0x020BBEA6, 0x3B139B22}};

// log brings its argument m in [1, 2) down towards 1 by the factors
// (1 - 2^-k), k = 2..8, and adds back -ln(1 - 2^-k) for each one used.
constexpr int kFirstLogFactor = 2;
constexpr int kLastLogFactor = 8;
constexpr Constant kMinusLogFactor[] = {
    {-1, {0x934B1089, 0xA6DC93C1, 0xDF5BB3B6, 0x0554E151,
          0x87A486E6, 0x5AA1BCD5, 0xAD047F99, 0x8C197D96}},
    {-2, {0x88BC7411, 0x3F23DEF1, 0x9C5A0FE3, 0x96F40F1D,
          0xDA8FEC3C, 0x24B78A37, 0xBF07ED54, 0xC028B125}},
    {-3, {0x842CC5AC, 0xF1D03445, 0x1FECDFA8, 0x19B96097,
          0xE362C7F8, 0xDD18E5CB, 0x2C885EBB, 0x0A67BC24}},
    {-4, {0x820AEC4F, 0x3A222380, 0xB9E3AEA6, 0xC444EF07,
          0x06133BC2, 0x65F030EE, 0x68461286, 0x1D60ED81}},
    {-5, {0x8102B2C4, 0x9AC23A4F, 0x91D082DC, 0xE3DDCD37,
          0xAAA7D9DE, 0x26DD26C2, 0x572C7266, 0x0F15F67B}},
    {-6, {0x8080ABAC, 0x46F38946, 0x662D417C, 0xED007A45,
          0xC0BE1062, 0xBD88C8E8, 0xE925964E, 0x76028722}},
    {-7, {0x80402ACA, 0xC459ABF2, 0xCC719EC6, 0xCED9BD14,
          0x9285E5D2, 0xF6FB917A, 0x05F66665, 0x2B2F9D90}},
};
static_assert(sizeof kMinusLogFactor / sizeof kMinusLogFactor[0] ==
                  kLastLogFactor - kFirstLogFactor + 1,
              "one constant per factor");

// Arguments whose significand in [0.5, 1) has this top limb or more are
// taken as m in [0.996, 1) rather than 2m: ln x stays free of cancellation
// just below 1.
constexpr Limb kNearOneTopLimb = 0xFF000000u;

WideFloat one() { return wide_from_int(1); }

int nearest_int(double v) { return static_cast<int>(v < 0 ? v - 0.5 : v + 0.5); }

// sum + term_1 + term_2 + ... with term_k = term_(k-1) * factor / divisor(k),
// from the given term_0 (already counted in sum) until a term vanishes.
template <typename Divisor>
WideFloat sum_series(WideFloat sum, WideFloat term, const WideFloat& factor, Divisor divisor) {
    for (std::uint32_t k = 1;; ++k) {
        term = wide_divided(term * factor, divisor(k));
        if (wide_negligible(term, sum.exponent, kSeriesCutoff)) return sum;
        sum = sum + term;
    }
}

// ln m = 2 atanh(s) = 2 (s + s^3/3 + s^5/5 + ...), s = (m - 1) / (m + 1),
// for m close to 1.
WideFloat log_near_one(const WideFloat& m) {
    const WideFloat s = (m - one()) * wide_reciprocal(m + one());
    const WideFloat s2 = s * s;
    WideFloat atanh = s;
    WideFloat power = s;
    for (std::uint32_t n = 3;; n += 2) {
        power = power * s2;
        const WideFloat term = wide_divided(power, n);
        if (wide_negligible(term, atanh.exponent, kSeriesCutoff)) break;
        atanh = atanh + term;
    }
    return wide_scaled(atanh, 1);
}

}  // namespace

WideFloat wide_ln2() { return to_wide(kLn2); }

WideFloat wide_half_pi() { return to_wide(kHalfPi); }

WideFloat wide_minus_log_factor(int k) { return to_wide(kMinusLogFactor[k - kFirstLogFactor]); }

WideFloat wide_exp(const WideFloat& t) {
    // t = k ln 2 + r with |r| about ln 2 / 2 at most.
    const int k = nearest_int(wide_to_double(t) * kLog2E);
    const WideFloat r = t - wide_from_int(k) * wide_ln2();
    const WideFloat small = wide_scaled(r, -kExpHalvings);
    WideFloat power = sum_series(one(), one(), small, [](std::uint32_t n) { return n; });
    for (int i = 0; i < kExpHalvings; ++i) power = power * power;
    return wide_scaled(power, k);
}

WideFloat wide_log(double x) {
    // x = m 2^e with m in [1, 2), or in [0.996, 1) just below a power of two.
    WideFloat m = wide_from_double(x);
    int e = m.exponent;
    m.exponent = 0;
    if (m.limb[0] < kNearOneTopLimb) {
        m.exponent = 1;
        e -= 1;
    }
    // m (1 - 2^-k) while that stays at or above 1: afterwards m < 1 / (1 - 2^-8).
    WideFloat taken_out;
    for (int k = kFirstLogFactor; k <= kLastLogFactor; ++k) {
        for (;;) {
            const WideFloat reduced = m - wide_scaled(m, -k);
            if (reduced.exponent < 1) break;  // below 1
            m = reduced;
            taken_out = taken_out + wide_minus_log_factor(k);
        }
    }
    return wide_from_int(e) * wide_ln2() + (log_near_one(m) + taken_out);
}

WideFloat wide_sin_reduced(const WideFloat& r) {
    // r - r^3/3! + r^5/5! - ...: term k = -term (k-1) r^2 / ((2k)(2k+1)).
    return sum_series(r, r, -(r * r), [](std::uint32_t k) { return (2 * k) * (2 * k + 1); });
}

WideFloat wide_cos_reduced(const WideFloat& r) {
    // 1 - r^2/2! + r^4/4! - ...: term k = -term (k-1) r^2 / ((2k-1)(2k)).
    return sum_series(one(), one(), -(r * r),
                      [](std::uint32_t k) { return (2 * k - 1) * (2 * k); });
}

}  // namespace qtzq
