// Body of the matrix kernel declared in saturation_vectors.h. Each including
// file defines QTZQ_KERNEL_SET (the namespace, named after the instruction
// set its compile flags select) and QTZQ_KERNEL_VECTOR_BYTES, and includes
// this header once.
//
// Integer work only, lanes across pixels. The caller has checked with
// matrix_sums_fit_32_bits that no partial sum of a row leaves the signed
// 32-bit range, so the sums in 32-bit lanes equal the reference's 64-bit
// sums; the shift is arithmetic, as on the 64-bit sum, and the clamp is
// clamp_byte's. Everything has internal linkage apart from the entry point.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "pixel/vector/saturation_vectors.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

#include "pixel/vector/pixel_lanes.h"

I32 splat(std::int32_t v) {
    I32 out;
    for (int i = 0; i < kLanes; ++i) out[i] = v;
    return out;
}

struct Row {
    I32 red, green, blue;
};

I32 apply_row(const Row& row, const Channels& c) {
    const I32 sum = row.red * c.r + row.green * c.g + row.blue * c.b;
    return clamp_bytes(sum >> 8);
}

}  // namespace

void saturation_matrix_pixels(unsigned char* px, std::size_t count, const int* m) {
    Row rows[3];
    for (int i = 0; i < 3; ++i) rows[i] = {splat(m[3 * i]), splat(m[3 * i + 1]), splat(m[3 * i + 2])};
    for_each_block(px, count, [&](unsigned char* block) {
        const Channels c = split(block);
        join(block, apply_row(rows[0], c), apply_row(rows[1], c), apply_row(rows[2], c), c.alpha);
    });
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
