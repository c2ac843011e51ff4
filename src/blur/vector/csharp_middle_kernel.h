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

template <int kLanes>
void blur_middle(const CSharpMiddle& job) {
    constexpr int kBytes = kLanes * 4 < QTZQ_KERNEL_VECTOR_BYTES ? kLanes * 4 : QTZQ_KERNEL_VECTOR_BYTES;
    using V = Vectors<kBytes>;
    constexpr int kCount = kLanes / V::kLanes;
    for (int j = job.first; j < job.end; ++j) {
        typename V::U32 sums[kCount] = {};
        for (int k = 0; k < job.term_count; ++k) {
            const std::uint32_t* p = job.prefix + std::size_t(j - job.half + job.terms[k].offset) * kLanes;
            const std::uint32_t c = job.terms[k].coefficient;
            for (int v = 0; v < kCount; ++v) sums[v] += c * V::load(p + v * V::kLanes);
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

void blur_csharp_middle(const CSharpMiddle& job, int lanes) {
    if (lanes == 4) blur_middle<4>(job);
    else blur_middle<32>(job);
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
