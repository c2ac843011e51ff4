// Body of the kernel declared in balance_lightness.h. Each including file
// defines QTZQ_KERNEL_SET (the namespace, named after the instruction set its
// compile flags select) and QTZQ_KERNEL_VECTOR_BYTES (the widest vector it
// uses), and includes this header once.
//
// Exactness rules: every pixel must get the bytes of the scalar reference
// (the curves, then keep_int_hls_lightness) on every compiler and CPU.
// - Lanes run across pixels, one 32-bit lane per pixel; a lane does one
//   pixel's integer HLS round trip and nothing else.
// - The lightness trunc(double((max + min) * 255) * 0.0019647) stays that
//   one double multiplication per lane, truncated (the value lies in
//   0..255.5, so the conversion is exact and defined).
// - The divisions with a variable divisor (saturation by max + min or 510 -
//   max - min, the hue steps by max - min) are looked up in IntHlsTables,
//   whose entries rgb_to_int_hls wrote; the largest channel's step is 0 and
//   the smallest's 42 (the tables hold the same), so one lookup per pixel
//   serves the middle channel.
// - The constant divisions by 255 and 85 are multiply-and-shift with
//   constants checked below (static_assert): exact for every dividend the
//   round trip can produce, and the product stays below 2^32.
// - For lightness and saturation in 0..255, m1 and m2 lie in 0..255 with m1
//   <= m2, so a channel value v is at least m1 >= 0 (the falling ramp, t =
//   170 - hue up to 43, can pass m2 and 255); the final scaling (255 v +
//   127) / 255 with its limits is then min(v, 255).
// - Where lanes take one of several results, every candidate is computed in
//   every lane; a candidate a lane does not take may leave the bounds above
//   (only in unsigned arithmetic, which wraps), never the int range.
// - Everything here has internal linkage apart from the entry point, so no
//   code compiled for a wider instruction set can stand in for a function
//   of the same name used elsewhere.
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__AVX2__)
#include <immintrin.h>
#endif

#include "pixel/hls_kernels.h"
#include "pixel/vector/balance_lightness.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

// The helpers pass vectors by value; inlined, they stay in registers.
#define QTZQ_LANES inline __attribute__((always_inline))

constexpr int kLanes = QTZQ_KERNEL_VECTOR_BYTES / 4;
typedef std::int32_t I32 __attribute__((vector_size(QTZQ_KERNEL_VECTOR_BYTES)));
typedef std::uint32_t U32 __attribute__((vector_size(QTZQ_KERNEL_VECTOR_BYTES)));
typedef double F64 __attribute__((vector_size(QTZQ_KERNEL_VECTOR_BYTES * 2)));

// floor(n / divisor) = (n * multiplier) >> shift for every n <= largest:
// with multiplier * divisor = 2^shift + e, the error n e / (divisor
// 2^shift) stays below 1 / divisor when n e < 2^shift.
struct ConstantDivision {
    std::uint32_t divisor;
    std::uint32_t largest;
    std::uint32_t multiplier;
    int shift;
};

constexpr bool exact_below_2_32(const ConstantDivision& d) {
    const std::uint64_t excess =
        std::uint64_t(d.multiplier) * d.divisor - (std::uint64_t(1) << d.shift);
    return std::uint64_t(d.multiplier) * d.divisor >= (std::uint64_t(1) << d.shift) &&
           std::uint64_t(d.largest) * excess < (std::uint64_t(1) << d.shift) &&
           std::uint64_t(d.largest) * d.multiplier < (std::uint64_t(1) << 32);
}

// l (255 + s) + 127 with l < 128, and l s + 127: at most 65152.
constexpr ConstantDivision kBy255 = {255, 65152, 32897, 23};
// (w t + 21) * 2 with w = m2 - m1 <= 255 and t <= 43: at most 21972.
constexpr ConstantDivision kBy85 = {85, 21972, 24673, 21};
static_assert(exact_below_2_32(kBy255), "division by 255");
static_assert(exact_below_2_32(kBy85), "division by 85");

template <const ConstantDivision& kDivision>
QTZQ_LANES I32 divide(I32 n) {
    return (I32)(((U32)n * kDivision.multiplier) >> kDivision.shift);
}

// a where the mask lane is all ones, b where it is zero.
#if defined(__AVX2__) && QTZQ_KERNEL_VECTOR_BYTES == 32
QTZQ_LANES I32 pick(I32 mask, I32 a, I32 b) {
    return (I32)_mm256_blendv_epi8((__m256i)b, (__m256i)a, (__m256i)mask);
}
QTZQ_LANES I32 max_of(I32 a, I32 b) { return (I32)_mm256_max_epi32((__m256i)a, (__m256i)b); }
QTZQ_LANES I32 min_of(I32 a, I32 b) { return (I32)_mm256_min_epi32((__m256i)a, (__m256i)b); }
#else
QTZQ_LANES I32 pick(I32 mask, I32 a, I32 b) { return (a & mask) | (b & ~mask); }
QTZQ_LANES I32 max_of(I32 a, I32 b) { return pick(a > b, a, b); }
QTZQ_LANES I32 min_of(I32 a, I32 b) { return pick(a < b, a, b); }
#endif

// table[index] per lane; the tables have 4 bytes to spare past their end.
QTZQ_LANES I32 lookup(const unsigned char* table, I32 index) {
#if defined(__AVX2__) && QTZQ_KERNEL_VECTOR_BYTES == 32
    const __m256i words =
        _mm256_i32gather_epi32(reinterpret_cast<const int*>(table), (__m256i)index, 1);
    return (I32)words & 0xFF;
#else
    I32 out;
    for (int i = 0; i < kLanes; ++i) out[i] = table[index[i]];
    return out;
#endif
}

// trunc(double((max + min) * 255) * 0.0019647) per lane.
QTZQ_LANES I32 int_hls_lightness(I32 sum) {
    const F64 scaled = __builtin_convertvector(sum * 255, F64) * kHlsLightnessScale;
    return __builtin_convertvector(scaled, I32);
}

// Hue and saturation of the integer HLS form, as rgb_to_int_hls gives them
// (the hue of a grey, whose saturation is 0, is left unset). With the
// largest channel's step 0, the smallest's 42 and the middle one's s, the
// three cases of the hue come to a base plus or minus s:
//   red largest:   blue smallest 42 - s, else s - 42 (+ 255 when negative);
//   green largest: blue smallest 43 + s, else 127 - s;
//   blue largest:  red smallest 128 + s, else 212 - s.
// Ties take the first case that applies, as the scalar tests do; the
// table gives 0 or 42 when the middle channel equals an extreme.
struct HueSaturation {
    I32 hue;
    I32 saturation;
};

QTZQ_LANES HueSaturation int_hue_saturation(I32 r, I32 g, I32 b, const IntHlsTables& tables) {
    const I32 max = max_of(max_of(r, g), b);
    const I32 min = min_of(min_of(r, g), b);
    const I32 delta = max - min;
    const I32 middle = r + g + b - max - min;
    const I32 step = lookup(tables.hue_step, (delta << 8) + (max - middle));
    const I32 red_largest = r == max, green_largest = g == max;
    const I32 blue_smallest = b == min, red_smallest = r == min;
    const I32 adds_step = pick(red_largest, ~blue_smallest,
                               pick(green_largest, blue_smallest, red_smallest));
    const I32 base = pick(red_largest, pick(blue_smallest, I32{} + 42, I32{} - 42),
                          pick(green_largest, pick(blue_smallest, I32{} + 43, I32{} + 127),
                               pick(red_smallest, I32{} + 128, I32{} + 212)));
    I32 hue = base + ((step ^ ~adds_step) - ~adds_step);  // + step or - step
    hue += (hue < 0) & 255;
    return {hue, lookup(tables.saturation, (max << 8) + min)};
}

// int_hls_channel for m1 <= m2 in 0..255 and a hue in 0..255. The ramp's
// t is the hue up to 42, 170 - hue from 127 to 169, and 0 past 169, where
// the ramp gives m1 (42 / 85 = 0): t = max(min(hue, 170 - hue), 0). Hues
// 43..126 take m2.
QTZQ_LANES I32 hue_level(I32 m1, I32 m2, I32 hue) {
    const I32 t = max_of(min_of(hue, kIntGreyHue - hue), I32{});
    const I32 ramp = min_of(divide<kBy85>(((m2 - m1) * t + 21) * 2) + m1, I32{} + 255);
    return pick((hue > 42) & (hue < 127), m2, ramp);
}

// int_hls_to_rgb for hue, lightness and saturation in 0..255, packed as
// blue, green, red in bytes 0..2 (byte 3 zero). Saturation 0 needs no case
// of its own: m1 = m2 = lightness, and every channel comes out as the
// lightness (the ramp adds 42 / 85 = 0).
QTZQ_LANES U32 int_hls_to_bgr(I32 hue, I32 lightness, I32 saturation) {
    const I32 m2 = pick(lightness < 128, divide<kBy255>(lightness * (255 + saturation) + 127),
                        lightness + saturation - divide<kBy255>(lightness * saturation + 127));
    const I32 m1 = 2 * lightness - m2;
    I32 red_hue = hue + kIntHueThird;
    red_hue -= (red_hue >= 256) & 255;
    I32 blue_hue = hue - kIntHueThird;
    blue_hue += (blue_hue < 0) & 255;
    const I32 r = hue_level(m1, m2, red_hue);
    const I32 g = hue_level(m1, m2, hue);
    const I32 b = hue_level(m1, m2, blue_hue);
    return (U32)(b | (g << 8) | (r << 16));
}

// kLanes pixels in place.
QTZQ_LANES void balance_block(unsigned char* pixels, const PaddedCurves& curves,
                              const IntHlsTables& tables) {
    U32 in;
    std::memcpy(&in, pixels, sizeof in);
    const I32 b0 = (I32)(in & 0xFF), g0 = (I32)((in >> 8) & 0xFF), r0 = (I32)((in >> 16) & 0xFF);
    const I32 lightness =
        int_hls_lightness(max_of(max_of(r0, g0), b0) + min_of(min_of(r0, g0), b0));
    const I32 r = lookup(curves.levels, r0);
    const I32 g = lookup(curves.levels + 256, g0);
    const I32 b = lookup(curves.levels + 512, b0);
    const HueSaturation hs = int_hue_saturation(r, g, b, tables);
    const U32 out = (in & 0xFF000000u) | int_hls_to_bgr(hs.hue, lightness, hs.saturation);
    std::memcpy(pixels, &out, sizeof out);
}

#undef QTZQ_LANES

}  // namespace

void balance_keep_lightness(const BalanceLightnessJob& job) {
    unsigned char* pixels = job.pixels;
    std::size_t left = job.count;
    for (; left >= kLanes; left -= kLanes, pixels += kLanes * 4)
        balance_block(pixels, *job.curves, *job.tables);
    if (left == 0) return;
    // The last few pixels in a block padded with black.
    unsigned char block[kLanes * 4] = {};
    std::memcpy(block, pixels, left * 4);
    balance_block(block, *job.curves, *job.tables);
    std::memcpy(pixels, block, left * 4);
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
