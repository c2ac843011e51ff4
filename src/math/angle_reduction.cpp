// x * 2/pi modulo 4, for x = M 2^ex with a 53-bit integer M. The bits of
// 2/pi worth 2^-j with j <= ex - 2 only add multiples of 4 and are skipped;
// the next 320 bits give the fraction to far more than the 2^-62 by which a
// double can approach a multiple of pi/2, plus the 192 bits of the result.
#include "math/angle_reduction.h"

#include <cstdint>
#include <cstring>

#include "math/wide_elementary.h"

namespace qtzq {
namespace {

using Limb = std::uint32_t;

// 2/pi = 0.A2F9836E 4E441529 ... (hexadecimal): 1408 bits, enough for the
// largest double (ex = 971) plus the window.
constexpr Limb kTwoOverPi[] = {
    0xA2F9836E, 0x4E441529, 0xFC2757D1, 0xF534DDC0, 0xDB629599, 0x3C439041,
    0xFE5163AB, 0xDEBBC561, 0xB7246E3A, 0x424DD2E0, 0x06492EEA, 0x09D1921C,
    0xFE1DEB1C, 0xB129A73E, 0xE88235F5, 0x2EBB4484, 0xE99C7026, 0xB45F7E41,
    0x3991D639, 0x835339F4, 0x9C845F8B, 0xBDF9283B, 0x1FF897FF, 0xDE05980F,
    0xEF2F118B, 0x5A0A6D1F, 0x6D367ECF, 0x27CB09B7, 0x4F463F66, 0x9E5FEA2D,
    0x7527BAC7, 0xEBE5F17B, 0x3D0739F7, 0x8A5292EA, 0x6BFB5FB1, 0x1F8D5D08,
    0x56033046, 0xFC7B6BAB, 0xF0CFBC20, 0x9AF4361D, 0xA9E39161, 0x5EE61B08,
    0x6599855F, 0x14A06840,
};
constexpr int kTableBits = 32 * int(sizeof kTwoOverPi / sizeof kTwoOverPi[0]);

constexpr int kWindowLimbs = 10;
constexpr int kWindowBits = 32 * kWindowLimbs;
constexpr int kProductLimbs = kWindowLimbs + 2;
constexpr int kProductBits = 32 * kProductLimbs;

constexpr int kLargestExponent = 971;  // of the largest double, (2^53 - 1) 2^971
static_assert(kLargestExponent - 1 + kWindowBits + 32 <= kTableBits, "2/pi table too short");

// The 32 bits of 2/pi from the bit worth 2^-first on.
Limb two_over_pi_bits(int first) {
    const int index = (first - 1) / 32;
    const int offset = (first - 1) % 32;
    const Limb high = kTwoOverPi[index] << offset;
    return offset == 0 ? high : high | (kTwoOverPi[index + 1] >> (32 - offset));
}

// Bit access on a big-endian product, positions counted from its lowest bit.
unsigned bit_at(const Limb* p, int position) {
    if (position < 0 || position >= kProductBits) return 0;
    return (p[kProductLimbs - 1 - position / 32] >> (position % 32)) & 1u;
}

void clear_from(Limb* p, int position) {
    for (int i = 0; i < kProductLimbs; ++i) {
        const int low = 32 * (kProductLimbs - 1 - i);  // position of this limb's lowest bit
        if (position <= low) {
            p[i] = 0;
        } else if (position < low + 32) {
            p[i] &= (Limb{1} << (position - low)) - 1;
        }
    }
}

void negate(Limb* p) {
    std::uint64_t carry = 1;
    for (int i = kProductLimbs - 1; i >= 0; --i) {
        const std::uint64_t sum = std::uint64_t{static_cast<Limb>(~p[i])} + carry;
        p[i] = static_cast<Limb>(sum);
        carry = sum >> 32;
    }
}

}  // namespace

QuarterTurns reduce_to_quarter_turn(double x) {
    std::uint64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    const int field = static_cast<int>((bits >> 52) & 0x7FF);
    std::uint64_t m = bits & ((std::uint64_t{1} << 52) - 1);
    if (field != 0) m |= std::uint64_t{1} << 52;
    const int ex = field == 0 ? -1074 : field - 1075;

    // Window of 2/pi from bit `first`; the product M * window has
    // `fraction_bits` bits below the binary point.
    const int first = ex - 1 > 1 ? ex - 1 : 1;
    Limb window[kWindowLimbs];
    for (int i = 0; i < kWindowLimbs; ++i) window[i] = two_over_pi_bits(first + 32 * i);
    const Limb factor[2] = {static_cast<Limb>(m >> 32), static_cast<Limb>(m)};
    Limb product[kProductLimbs];
    multiply_limbs(factor, 2, window, kWindowLimbs, product);
    const int fraction_bits = first + kWindowBits - 1 - ex;

    int quadrant = int(bit_at(product, fraction_bits) | (bit_at(product, fraction_bits + 1) << 1));
    clear_from(product, fraction_bits);
    // A fraction of one half or more belongs to the next quarter turn, as
    // the negative remainder fraction - 1.
    const bool upper_half = bit_at(product, fraction_bits - 1) != 0;
    if (upper_half) {
        quadrant = (quadrant + 1) & 3;
        negate(product);
        clear_from(product, fraction_bits);
    }
    const WideFloat fraction =
        wide_from_limbs(product, kProductLimbs, kProductBits - fraction_bits, upper_half);
    return QuarterTurns{quadrant, fraction * wide_half_pi()};
}

}  // namespace qtzq
