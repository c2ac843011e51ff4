// Body of the kernel declared in csharp_rows.h. Each including file defines
// QTZQ_KERNEL_SET (the namespace, named after the instruction set its
// compile flags select) and QTZQ_KERNEL_VECTOR_BYTES (the widest vector it
// uses), and includes this header once.
//
// Integer work only, each lane the same operations as the scalar reference
// on one sample: the prefix sums wrap modulo 2^32 (or 2^16 where every sum
// of the pass fits in 16 bits), unsigned and so defined, and every box sum
// and total the reference forms fits in the lane, so the wrapped
// differences and their weighted sum are the reference's values whatever
// the order of the boxes. The quotient is ExactDivider's multiply and shift
// (or its short form), exact for every dividend up to its bound. Everything
// has internal linkage apart from the entry points.
#include <cstddef>
#include <cstring>

#include "blur/vector/csharp_lanes.h"
#include "blur/vector/csharp_rows.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

template <typename T>
void add_prefix_row(const T* previous, const unsigned char* bytes, T* next, std::ptrdiff_t lanes) {
    using Vs = Vectors<T, kCSharpRowLanes>;
    std::ptrdiff_t i = 0;
    for (; i + Vs::kLanes <= lanes; i += Vs::kLanes) {
        typename Vs::U8 row;
        std::memcpy(&row, bytes + i, sizeof row);
        const typename Vs::V sum = Vs::load(previous + i) + Vs::widen(row);
        std::memcpy(next + i, &sum, sizeof sum);
    }
    for (; i < lanes; ++i) next[i] = static_cast<T>(previous[i] + bytes[i]);
}

template <typename T>
void sum_row_boxes(const CSharpRowBoxes& job, const T* ring) {
    using Vs = Vectors<T, kCSharpRowLanes>;
    Vs::with_divider(job.divide, [&](auto divide) {
        for (std::ptrdiff_t i = 0; i < job.lanes; i += Vs::kLanes) {
            typename Vs::V sum = {};
            for (int k = 0; k < job.box_count; ++k) {
                const T height = static_cast<T>(job.heights[k]);
                sum += height * (Vs::load(ring + job.ends[k] + i) - Vs::load(ring + job.begins[k] + i));
            }
            divide(sum, job.out + i);
        }
    });
}

}  // namespace

void add_csharp_prefix_row(const CSharpRowPrefix& job) {
    if (job.next16 != nullptr) add_prefix_row(job.previous16, job.bytes, job.next16, job.lanes);
    else add_prefix_row(job.previous, job.bytes, job.next, job.lanes);
}

void sum_csharp_row_boxes(const CSharpRowBoxes& job) {
    if (job.ring16 != nullptr) sum_row_boxes(job, job.ring16);
    else sum_row_boxes(job, job.ring);
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
