// Body of the span kernel declared in hsl_shift.h. Each including file
// defines QTZQ_KERNEL_SET (the namespace, named after the instruction set its
// compile flags select) and QTZQ_KERNEL_LANES (pixels per vector), and
// includes this header once.
//
// Exactness rules: the vector paths must give the bytes of the scalar
// reference (rgb_to_hsl, table, hsl_to_rgb in pixel/hsl_kernels.h) on every
// compiler and CPU.
// - Each lane performs the same IEEE single-precision operations, in the same
//   order, as the scalar code does for its pixel: float stays float, no
//   reciprocal stands in for a division, no sum is reassociated.
// - No fused multiply-add: the build passes -ffp-contract=off, kernel files
//   are never given -mfma or a -march that implies it (-mavx2 alone does
//   not), and no helper that may fuse is called.
// - Branches become selects between values each computed exactly as the
//   scalar branch computes it. A lane may compute a value it does not select
//   (a grey's hue distances divide by 1 instead of 0, so that every lane
//   stays finite). Selecting the operands before operations the branches
//   share performs the selected branch's own operations: the two hue
//   distances that the maximum's branch reads are the only ones divided,
//   and of the three channels only the one on a ramp of hue_to_rgb (there
//   is at most one) has its ramp computed.
// - Integer work stays integer. The saturation's truncating quotient
//   255 * delta / d is a multiply by ceil(2^24 / d) and a shift right by 24
//   (exact, see saturation_multipliers).
// - Float to integer conversions truncate toward zero, as truncate_int and
//   truncate_low_byte do, and only ever meet values they agree on: the hue
//   distances lie in 0.5..43, the hue sums in 42..213, the channel levels
//   above -1 and below 257 (truncate_low_byte gives 0 for the slightly
//   negative ones, and so does truncation toward zero).
// - Everything here has internal linkage apart from the entry point, so no
//   code compiled for a wider instruction set can stand in for a function
//   of the same name used elsewhere.
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__AVX2__)
#include <immintrin.h>
#endif

#include "pixel/vector/hsl_shift.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

constexpr int kLanes = QTZQ_KERNEL_LANES;

typedef float vf __attribute__((vector_size(4 * kLanes)));
typedef std::int32_t vi __attribute__((vector_size(4 * kLanes)));
typedef std::uint32_t vu __attribute__((vector_size(4 * kLanes)));

// Multipliers for the saturation's divisor, indexed by the sum of the
// extremes: the divisor is the sum itself below lightness 128, 510 - sum from
// there on (1..255 for every colour that is not grey; black's and white's
// divisor 0 gets 0, a grey's dividend is 0 anyway). With m = ceil(2^24 / d), e = m * d - 2^24 < d and a
// dividend n = 255 * delta <= 255 * d (delta never exceeds either divisor):
// n * m <= 255 * (2^24 + e) < 2^32, so the product fits 32 bits; and
// n * m / 2^24 exceeds n / d by n * e / (d * 2^24) < 1 / d (as
// n * e < 255^3 < 2^24), which never reaches the next whole number.
struct SaturationMultipliers {
    std::int32_t by_sum[511];
};

constexpr SaturationMultipliers saturation_multipliers() {
    SaturationMultipliers table{};
    for (int sum = 0; sum <= 510; ++sum) {
        const int lightness = (sum + 1) >> 1;
        const std::int64_t divisor = lightness >= 128 ? 510 - sum : sum;
        const std::int64_t scale = std::int64_t(1) << 24;
        table.by_sum[sum] = divisor == 0 ? 0 : std::int32_t((scale + divisor - 1) / divisor);
    }
    return table;
}

constexpr SaturationMultipliers kSaturationMultipliers = saturation_multipliers();

template <typename V, typename S>
inline V splat(S value) {
    V v;
    for (int i = 0; i < kLanes; ++i) v[i] = value;
    return v;
}

inline vf to_float(vi v) { return __builtin_convertvector(v, vf); }
inline vi truncate(vf v) { return __builtin_convertvector(v, vi); }

inline vi select(vi mask, vi a, vi b) { return (mask & a) | (~mask & b); }
inline vf select(vi mask, vf a, vf b) { return (vf)select(mask, (vi)a, (vi)b); }

inline vi maximum(vi a, vi b) { return select(a > b, a, b); }
inline vi minimum(vi a, vi b) { return select(a < b, a, b); }

// table[index] for every lane.
inline vi gather(const std::int32_t* table, vi index) {
#if defined(__AVX2__) && QTZQ_KERNEL_LANES == 8
    if (kLanes == 8) return (vi)_mm256_i32gather_epi32(table, (__m256i)index, 4);
#endif
    vi out;
    for (int i = 0; i < kLanes; ++i) out[i] = table[index[i]];
    return out;
}

// Lane form of truncate_low_byte on the levels that reach it here.
inline vi truncate_low_byte(vf v) { return truncate(v) & 0xFF; }

struct Channels {
    vi r, g, b;
};

struct Hsl {
    vi hue, saturation, lightness;
};

// hsl_hue_distance.
inline vi hue_distance(vi max_level, vi level, vf delta) {
    return truncate(to_float(max_level - level) * 42.5f / delta + 0.5f);
}

// rgb_to_hsl, with the saturation already passed through the table.
__attribute__((always_inline)) inline Hsl to_hsl(const Channels& c, const std::int32_t* table) {
    const vi max_level = maximum(maximum(c.r, c.g), c.b);
    const vi min_level = minimum(minimum(c.r, c.g), c.b);
    const vi sum = max_level + min_level;
    const vi delta = max_level - min_level;
    const vi grey = delta == 0;

    const vu multiplier = (vu)gather(kSaturationMultipliers.by_sum, sum);
    const vi quotient = (vi)(((vu)(delta * 255) * multiplier) >> 24);
    const vi saturation = select(grey, splat<vi>(0), (quotient + 1) & 0xFF);

    // Only the two distances that the maximum's branch reads are divided:
    // `first` is dg where red is the maximum and dr otherwise, `second` is dg
    // where blue is and db otherwise.
    const vi red_max = max_level == c.r;
    const vi green_max = ~red_max & (max_level == c.g);
    const vf delta_f = to_float(select(grey, splat<vi>(1), delta));
    const vi first = hue_distance(max_level, select(red_max, c.g, c.r), delta_f);
    const vi second = hue_distance(max_level, select(red_max | green_max, c.b, c.g), delta_f);
    const vi red_hue = (second - first) & 0xFF;                                           // db - dg
    const vi green_hue = truncate_low_byte(to_float(first) + 85.0f - to_float(second));  // dr, db
    const vi blue_hue = truncate_low_byte(to_float(second) + 170.0f - to_float(first));  // dg, dr
    const vi hue = select(red_max, red_hue, select(green_max, green_hue, blue_hue));
    return {select(grey, splat<vi>(170), hue), gather(table, saturation), (sum + 1) >> 1};
}

// hue_to_rgb in three parts. The hue brought back into the circle:
inline vf turned(vf hue) {
    return select(hue > 360.0f, hue - 360.0f, select(hue < 0.0f, hue + 360.0f, hue));
}

// Whether the level lies on a ramp (hue below 60, or 180 up to 240), and
// the degrees the ramp has run (hue or 240 - hue).
inline vi on_ramp(vf hue) { return (hue < 60.0f) | ((hue >= 180.0f) & (hue < 240.0f)); }
inline vf ramp_run(vf hue) { return select(hue < 60.0f, hue, 240.0f - hue); }

// The level off the ramps: m2 up to 180, m1 from 240.
inline vf plateau(vf m1, vf m2, vf hue) { return select(hue < 180.0f, m2, m1); }

inline vi level_byte(vf level) { return truncate_low_byte(level * 255.0f); }

// hsl_to_rgb.
__attribute__((always_inline)) inline Channels to_rgb(const Hsl& hsl) {
    const vf l = to_float(hsl.lightness) / 255.0f;
    const vf s = to_float(hsl.saturation) / 255.0f;
    const vf m2 = select(l <= 0.5f, l * (1.0f + s), l + s - l * s);
    const vf degrees = to_float(hsl.hue) * 360.0f / 255.0f;
    const vf m1 = 2.0f * l - m2;
    const vi flat = s == 0.0f;
    const vi grey_level = level_byte(l);

    // The channels' hues lie a third of the circle apart and the ramps
    // cover a third of it, so at most one channel is on a ramp (none at
    // hues 240 and 360, where the others sit exactly on the ends; the
    // other hue bytes lie at least 0.7 degrees from every end). One ramp
    // per pixel is computed, with the operands of the channel on it.
    const vf red = turned(degrees + 120.0f), green = turned(degrees),
             blue = turned(degrees - 120.0f);
    const vi red_ramp = on_ramp(red), green_ramp = on_ramp(green), blue_ramp = on_ramp(blue);
    const vf run = select(red_ramp, ramp_run(red), select(green_ramp, ramp_run(green), ramp_run(blue)));
    const vf ramp = m1 + (m2 - m1) * run / 60.0f;
    return {select(flat, grey_level, level_byte(select(red_ramp, ramp, plateau(m1, m2, red)))),
            select(flat, grey_level, level_byte(select(green_ramp, ramp, plateau(m1, m2, green)))),
            select(flat, grey_level, level_byte(select(blue_ramp, ramp, plateau(m1, m2, blue))))};
}

// The channels of kLanes BGRA pixels (x86 is little-endian: blue in the low
// byte), and the pixels with new channels and their own alpha.
inline Channels unpack(vi words) { return {(words >> 16) & 0xFF, (words >> 8) & 0xFF, words & 0xFF}; }
inline vi pack(vi words, const Channels& c) {
    return (words & ~0xFFFFFF) | (c.r << 16) | (c.g << 8) | c.b;
}

// kLanes pixels in place.
inline void shift_group(unsigned char* pixels, const std::int32_t* table) {
    vi words;
    std::memcpy(&words, pixels, sizeof words);
    words = pack(words, to_rgb(to_hsl(unpack(words), table)));
    std::memcpy(pixels, &words, sizeof words);
}

// 2 * kLanes pixels in place, the two groups' work interleaved: it is
// independent, so one group's operations fill the time the other waits on
// a gather or a division.
__attribute__((always_inline)) inline void shift_group_pair(unsigned char* pixels,
                                                             const std::int32_t* table) {
    vi first, second;
    std::memcpy(&first, pixels, sizeof first);
    std::memcpy(&second, pixels + sizeof first, sizeof second);
    const Hsl first_hsl = to_hsl(unpack(first), table), second_hsl = to_hsl(unpack(second), table);
    first = pack(first, to_rgb(first_hsl));
    second = pack(second, to_rgb(second_hsl));
    std::memcpy(pixels, &first, sizeof first);
    std::memcpy(pixels + sizeof first, &second, sizeof second);
}

}  // namespace

void shift_hsl_saturation_span(unsigned char* pixels, std::size_t count,
                               const unsigned char* table) {
    std::int32_t wide_table[256];
    for (int i = 0; i < 256; ++i) wide_table[i] = table[i];
    constexpr std::size_t kGroupBytes = 4 * kLanes;
    const std::size_t whole = count - count % kLanes;
    std::size_t i = 0;
    for (; i + 2 * kLanes <= whole; i += 2 * kLanes) shift_group_pair(pixels + 4 * i, wide_table);
    for (; i < whole; i += kLanes) shift_group(pixels + 4 * i, wide_table);
    const std::size_t rest = 4 * (count - whole);
    if (rest == 0) return;
    // The last few pixels through a full group's buffer, padded with black.
    unsigned char group[kGroupBytes] = {};
    std::memcpy(group, pixels + 4 * whole, rest);
    shift_group(group, wide_table);
    std::memcpy(pixels + 4 * whole, group, rest);
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
