// Vector helpers shared by CSharp's kernel headers (csharp_middle_kernel.h,
// csharp_rows_kernel.h): lane types, and the exact quotients of prefix-sum
// windows as bytes. Included once per kernel file, after it has defined
// QTZQ_KERNEL_SET and QTZQ_KERNEL_VECTOR_BYTES; everything has internal
// linkage.
#ifndef QTZQ_BLUR_VECTOR_CSHARP_LANES_H
#define QTZQ_BLUR_VECTOR_CSHARP_LANES_H

#include <cstdint>
#include <cstring>
#include <type_traits>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

#include "blur/exact_divider.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

// Vectors of N lanes (4, 8 or 16) of each width the kernel uses (the
// attribute needs a literal size).
template <int N>
struct LaneTypes;
template <>
struct LaneTypes<4> {
    typedef std::uint16_t U16 __attribute__((vector_size(8)));
    typedef std::uint32_t U32 __attribute__((vector_size(16)));
    typedef std::uint64_t U64 __attribute__((vector_size(16)));
    typedef unsigned char U8 __attribute__((vector_size(4)));
};
template <>
struct LaneTypes<8> {
    typedef std::uint16_t U16 __attribute__((vector_size(16)));
    typedef std::uint32_t U32 __attribute__((vector_size(32)));
    typedef std::uint64_t U64 __attribute__((vector_size(32)));
    typedef unsigned char U8 __attribute__((vector_size(8)));
};
template <>
struct LaneTypes<16> {
    typedef std::uint16_t U16 __attribute__((vector_size(32)));
    typedef std::uint32_t U32 __attribute__((vector_size(64)));
    typedef std::uint64_t U64 __attribute__((vector_size(64)));
    typedef unsigned char U8 __attribute__((vector_size(16)));
};

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "a lane's low byte comes first");

// The low byte of each 32-bit lane (values known to be bytes), gathered by
// one shuffle: a plain conversion is taken apart lane by lane by the
// compiler.
inline LaneTypes<4>::U8 low_bytes(LaneTypes<4>::U32 lanes) {
    typedef unsigned char Raw __attribute__((vector_size(16)));
    const Raw raw = (Raw)lanes;
    return __builtin_shufflevector(raw, raw, 0, 4, 8, 12);
}
inline LaneTypes<8>::U8 low_bytes(LaneTypes<8>::U32 lanes) {
    typedef unsigned char Raw __attribute__((vector_size(32)));
    const Raw raw = (Raw)lanes;
    return __builtin_shufflevector(raw, raw, 0, 4, 8, 12, 16, 20, 24, 28);
}

// Prefix sums of element type T (uint32_t, or uint16_t when every sum of
// the pass fits in 16 bits) in vectors of the unit's width.
template <typename T, int kBlockLanes>
struct Vectors {
    static constexpr int kWidest = QTZQ_KERNEL_VECTOR_BYTES / int(sizeof(T));
    static constexpr int kLanes = kBlockLanes < kWidest ? kBlockLanes : kWidest;
    using Types = LaneTypes<kLanes>;
    using U8 = typename Types::U8;
    using V = typename std::conditional<sizeof(T) == 2, typename Types::U16, typename Types::U32>::type;

    static V load(const T* p) {
        V v;
        std::memcpy(&v, p, sizeof v);
        return v;
    }

    // Bytes widened to lanes. Bytes to 32-bit lanes go through 16-bit ones:
    // the compiler takes the direct conversion apart byte by byte.
    static V widen(U8 bytes) {
        if constexpr (sizeof(T) == 2) {
            return __builtin_convertvector(bytes, V);
        } else {
            return __builtin_convertvector(__builtin_convertvector(bytes, typename Types::U16), V);
        }
    }

    // The 64-bit products of the low 32 bits of each 64-bit lane: one
    // instruction where the unit has it (the compiler, not seeing that the
    // high halves are zero, would multiply all 64 bits).
    template <typename U64>
    static U64 multiply_low_halves(U64 a, U64 b) {
#if defined(__AVX2__)
        if constexpr (sizeof(U64) == 32) return (U64)_mm256_mul_epu32((__m256i)a, (__m256i)b);
#endif
#if defined(__SSE2__)
        if constexpr (sizeof(U64) == 16) return (U64)_mm_mul_epu32((__m128i)a, (__m128i)b);
#endif
        return (a & 0xFFFFFFFFu) * (b & 0xFFFFFFFFu);
    }

    // floor(n * m / 2^16) in every lane of 16-bit lanes: one multiply-high
    // where the unit has it, else widened to 32 bits.
    static V multiply_high(V n, std::uint16_t m) {
#if defined(__AVX2__)
        if constexpr (sizeof(V) == 32) return (V)_mm256_mulhi_epu16((__m256i)n, _mm256_set1_epi16(short(m)));
#endif
#if defined(__SSE2__)
        if constexpr (sizeof(V) == 16) return (V)_mm_mulhi_epu16((__m128i)n, _mm_set1_epi16(short(m)));
#endif
        using Wide = typename Types::U32;
        return __builtin_convertvector((__builtin_convertvector(n, Wide) * std::uint32_t(m)) >> 16, V);
    }

    // Exact quotients of 16-bit dividends below the divider's bound through
    // its short form (ExactDivider::short_multiplier).
    static void divide_short_to_bytes(V sums, std::uint16_t multiplier, int shift, unsigned char* out) {
        const U8 bytes = __builtin_convertvector(multiply_high(sums, multiplier) >> shift, U8);
        std::memcpy(out, &bytes, sizeof bytes);
    }

    // Exact quotients of dividends below the divider's bound: each widened
    // to 64 bits, multiplied, shifted. The quotients are bytes, so the two
    // halves put back together do not overlap. Done in groups of at most
    // eight lanes, which the widest unit holds as 32-bit lanes.
    static void divide_to_bytes(V sums, std::uint64_t multiplier, int shift, unsigned char* out) {
        constexpr int kGroup = kLanes < 8 ? kLanes : 8;
        using Group = LaneTypes<kGroup>;
        T lanes[kLanes];
        std::memcpy(lanes, &sums, sizeof sums);
        for (int g = 0; g < kLanes; g += kGroup) {
            typename Group::U32 n;
            if constexpr (sizeof(T) == 2) {
                typename Group::U16 narrow;
                std::memcpy(&narrow, lanes + g, sizeof narrow);
                n = __builtin_convertvector(narrow, typename Group::U32);
            } else {
                std::memcpy(&n, lanes + g, sizeof n);
            }
            using U64 = typename Group::U64;
            const U64 wide = (U64)n;
            const U64 m = U64{} + multiplier;
            const U64 even = multiply_low_halves(wide, m) >> shift;
            const U64 odd = multiply_low_halves(wide >> 32, m) >> shift;
            const auto bytes = low_bytes((typename Group::U32)(even | (odd << 32)));
            std::memcpy(out + g, &bytes, sizeof bytes);
        }
    }

    // Runs body(divide), divide(sums, out) writing the exact quotients of a
    // vector of sums as bytes: the short form where the lanes are 16-bit and
    // the divider has one, so that the choice is made once, outside the
    // body's loops.
    template <class Body>
    static void with_divider(const ExactDivider& divider, Body body) {
        if constexpr (sizeof(T) == 2) {
            if (divider.short_multiplier() != 0) {
                const std::uint16_t m = divider.short_multiplier();
                const int s = divider.short_shift();
                body([m, s](V sums, unsigned char* out) { divide_short_to_bytes(sums, m, s, out); });
                return;
            }
        }
        const std::uint32_t m = divider.multiplier();
        const int s = divider.shift();
        body([m, s](V sums, unsigned char* out) { divide_to_bytes(sums, m, s, out); });
    }
};

}  // namespace
}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq

#endif  // QTZQ_BLUR_VECTOR_CSHARP_LANES_H
