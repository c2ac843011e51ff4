// Body of the kernel declared in csharp_middle.h. Each including file
// defines QTZQ_KERNEL_SET (the namespace, named after the instruction set its
// compile flags select) and QTZQ_KERNEL_VECTOR_BYTES (the widest vector it
// uses), and includes this header once.
//
// Integer work only: the sums wrap modulo 2^32 (unsigned, defined) and
// every result fits in 32 bits, so any grouping of lanes gives the bytes of
// the tap-by-tap reference. Vectors are spelled out: left to itself the
// compiler keeps 32-bit multiplies scalar on units without such a vector
// instruction (SSE2), though emulating them with 64-bit multiplies is
// faster. Everything has internal linkage apart from the entry point.
#include <cstddef>
#include <cstring>

#include "blur/vector/csharp_middle.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

// Vector types of 16 and 32 bytes (the attribute needs a literal size).
template <int kBytes>
struct VectorTypes;
template <>
struct VectorTypes<16> {
    typedef std::uint32_t U32 __attribute__((vector_size(16)));
    typedef std::uint64_t U64 __attribute__((vector_size(16)));
    typedef unsigned char U8 __attribute__((vector_size(4)));
};
template <>
struct VectorTypes<32> {
    typedef std::uint32_t U32 __attribute__((vector_size(32)));
    typedef std::uint64_t U64 __attribute__((vector_size(32)));
    typedef unsigned char U8 __attribute__((vector_size(8)));
};

template <int kBytes>
struct Vectors {
    static constexpr int kLanes = kBytes / 4;
    using U32 = typename VectorTypes<kBytes>::U32;
    using U64 = typename VectorTypes<kBytes>::U64;
    using U8 = typename VectorTypes<kBytes>::U8;

    static U32 load(const std::uint32_t* p) {
        U32 v;
        std::memcpy(&v, p, sizeof v);
        return v;
    }

    // Exact quotients of dividends below the divider's bound: each widened
    // to 64 bits, multiplied, shifted. The quotients are bytes, so the two
    // halves put back together do not overlap.
    static U32 divide(U32 n, std::uint64_t multiplier, int shift) {
        const U64 wide = (U64)n;
        const U64 even = ((wide & 0xFFFFFFFFu) * multiplier) >> shift;
        const U64 odd = ((wide >> 32) * multiplier) >> shift;
        return (U32)(even | (odd << 32));
    }
};

// The vectors a block of kLanes lanes is handled in.
template <int kLanes>
using VectorsFor = Vectors<(kLanes * 4 < QTZQ_KERNEL_VECTOR_BYTES ? kLanes * 4 : QTZQ_KERNEL_VECTOR_BYTES)>;

template <int kLanes>
void fill_prefix(const CSharpPrefix& job) {
    using V = VectorsFor<kLanes>;
    constexpr int kCount = kLanes / V::kLanes;
    constexpr int kPixels = V::kLanes / 4;  // pixels of neighbouring lines in one vector
    typename V::U32 running[kCount] = {};
    std::uint32_t* row = job.prefix;
    std::memset(row, 0, kLanes * sizeof *row);
    const unsigned char* sample = job.in;
    for (int t = 0; t < job.length; ++t, sample += job.step) {
        row += kLanes;
        for (int v = 0; v < kCount; ++v) {
            typename V::U8 bytes;
            if (job.line_step == 4) {  // neighbouring pixels of a row: one load
                std::memcpy(&bytes, sample + v * V::kLanes, sizeof bytes);
            } else {
                unsigned char gathered[V::kLanes];
                for (int p = 0; p < kPixels; ++p)
                    std::memcpy(gathered + 4 * p, sample + (v * kPixels + p) * job.line_step, 4);
                std::memcpy(&bytes, gathered, sizeof bytes);
            }
            running[v] += __builtin_convertvector(bytes, typename V::U32);
            std::memcpy(row + v * V::kLanes, &running[v], sizeof running[v]);
        }
    }
}

template <int kLanes>
void blur_middle(const CSharpMiddle& job) {
    using V = VectorsFor<kLanes>;
    constexpr int kCount = kLanes / V::kLanes;
    for (int j = job.first; j < job.end; ++j) {
        typename V::U32 sums[kCount] = {};
        const std::uint32_t* window = job.prefix + std::size_t(j - job.half) * kLanes;
        for (int k = 0; k < job.box_count; ++k) {
            const WeightBox& box = job.boxes[k];
            const std::uint32_t* begin = window + std::size_t(box.begin) * kLanes;
            const std::uint32_t* end = window + std::size_t(box.end) * kLanes;
            for (int v = 0; v < kCount; ++v) {
                const int lane = v * V::kLanes;
                sums[v] += box.height * (V::load(end + lane) - V::load(begin + lane));
            }
        }
        unsigned char* o = job.out + std::size_t(j) * kLanes;
        for (int v = 0; v < kCount; ++v) {
            const auto bytes = __builtin_convertvector(V::divide(sums[v], job.multiplier, job.shift),
                                                       typename V::U8);
            std::memcpy(o + v * V::kLanes, &bytes, sizeof bytes);
        }
    }
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
