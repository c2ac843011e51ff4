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

#include "blur/vector/csharp_lanes.h"
#include "blur/vector/csharp_middle.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

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
            running[v] += Vs::widen(bytes);
            std::memcpy(row + v * Vs::kLanes, &running[v], sizeof running[v]);
        }
    }
}

template <int kLanes, typename T>
void blur_middle(const CSharpMiddle& job, const T* prefix) {
    using Vs = Vectors<T, kLanes>;
    constexpr int kCount = kLanes / Vs::kLanes;
    Vs::with_divider(job.divide, [&](auto divide) {
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
            for (int v = 0; v < kCount; ++v) divide(sums[v], o + v * Vs::kLanes);
        }
    });
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
