// Body of the kernel declared in csharp_middle.h. Each including file
// defines QTZQ_KERNEL_SET (the namespace, named after the instruction set its
// compile flags select) and QTZQ_KERNEL_VECTOR_BYTES (the widest vector it
// uses), and includes this header once.
//
// Integer work only: the sums wrap modulo 2^32 (unsigned, defined) and
// every result fits in 32 bits, so any grouping of lanes gives the bytes of
// the tap-by-tap reference. Where every sum of a pass fits in 16 bits (the
// small radii) the prefix sums are kept modulo 2^16 instead, twice the lanes
// per vector, with the same argument. Vectors are spelled out: left to itself the
// compiler keeps 32-bit multiplies scalar on units without such a vector
// instruction (SSE2), though emulating them with 64-bit multiplies is
// faster. Everything has internal linkage apart from the entry point.
#include <cstddef>
#include <cstring>
#include <type_traits>

#include "blur/vector/csharp_middle.h"

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
            const typename Group::U64 wide = (typename Group::U64)n;
            const typename Group::U64 even = ((wide & 0xFFFFFFFFu) * multiplier) >> shift;
            const typename Group::U64 odd = ((wide >> 32) * multiplier) >> shift;
            const auto bytes = low_bytes((typename Group::U32)(even | (odd << 32)));
            std::memcpy(out + g, &bytes, sizeof bytes);
        }
    }
};

template <int kLanes, typename T>
void fill_prefix(const CSharpPrefix& job, T* row) {
    using Vs = Vectors<T, kLanes>;
    constexpr int kCount = kLanes / Vs::kLanes;
    constexpr int kPixels = Vs::kLanes / 4;  // pixels of neighbouring lines in one vector
    typename Vs::V running[kCount] = {};
    std::memset(row, 0, kLanes * sizeof *row);
    const unsigned char* sample = job.in;
    for (int t = 0; t < job.length; ++t, sample += job.step) {
        row += kLanes;
        for (int v = 0; v < kCount; ++v) {
            typename Vs::U8 bytes;
            if (job.line_step == 4) {  // neighbouring pixels of a row: one load
                std::memcpy(&bytes, sample + v * Vs::kLanes, sizeof bytes);
            } else {
                unsigned char gathered[Vs::kLanes];
                for (int p = 0; p < kPixels; ++p)
                    std::memcpy(gathered + 4 * p, sample + (v * kPixels + p) * job.line_step, 4);
                std::memcpy(&bytes, gathered, sizeof bytes);
            }
            running[v] += __builtin_convertvector(bytes, typename Vs::V);
            std::memcpy(row + v * Vs::kLanes, &running[v], sizeof running[v]);
        }
    }
}

template <int kLanes, typename T>
void blur_middle(const CSharpMiddle& job, const T* prefix) {
    using Vs = Vectors<T, kLanes>;
    constexpr int kCount = kLanes / Vs::kLanes;
    for (int j = job.first; j < job.end; ++j) {
        typename Vs::V sums[kCount] = {};
        const T* window = prefix + std::size_t(j - job.half) * kLanes;
        for (int k = 0; k < job.box_count; ++k) {
            const WeightBox& box = job.boxes[k];
            const T* begin = window + std::size_t(box.begin) * kLanes;
            const T* end = window + std::size_t(box.end) * kLanes;
            const T height = static_cast<T>(box.height);
            for (int v = 0; v < kCount; ++v) {
                const int lane = v * Vs::kLanes;
                sums[v] += height * (Vs::load(end + lane) - Vs::load(begin + lane));
            }
        }
        unsigned char* o = job.out + std::size_t(j) * kLanes;
        for (int v = 0; v < kCount; ++v)
            Vs::divide_to_bytes(sums[v], job.multiplier, job.shift, o + v * Vs::kLanes);
    }
}

template <int kLanes>
void fill_prefix(const CSharpPrefix& job) {
    if (job.prefix16 != nullptr) fill_prefix<kLanes>(job, job.prefix16);
    else fill_prefix<kLanes>(job, job.prefix);
}

template <int kLanes>
void blur_middle(const CSharpMiddle& job) {
    if (job.prefix16 != nullptr) blur_middle<kLanes>(job, job.prefix16);
    else blur_middle<kLanes>(job, job.prefix);
}

}  // namespace

void fill_csharp_prefix(const CSharpPrefix& job, int lanes) {
    if (lanes == 4) fill_prefix<4>(job);
    else fill_prefix<32>(job);
}

void blur_csharp_middle(const CSharpMiddle& job, int lanes) {
    if (lanes == 4) blur_middle<4>(job);
    else blur_middle<32>(job);
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
