// Body of the YUV chroma kernel declared in saturation_vectors.h. Each
// including file defines QTZQ_KERNEL_SET (the namespace, named after the
// instruction set its compile flags select) and QTZQ_KERNEL_VECTOR_BYTES
// (16 for SSE2, 32 for AVX2), and includes this header once.
//
// Exactness rules: the vector paths must give the bytes of the scalar
// reference (scale_yuv_chroma: rgb_to_yuv, the table on U and V,
// yuv_to_rgb) on every compiler and CPU.
// - Lanes run across pixels; each lane performs the same IEEE
//   single-precision operations, in the same order, as the scalar code does
//   for its pixel: luma = (g * 0.587 + r * 0.299) + b * 0.114, the chroma
//   128 + float(channel - luma_int) * factor, and on the way back
//   y + v * 1.403, (y + u * -0.344) + v * -0.714, y + u * 1.77.
// - No fused multiply-add: the build passes -ffp-contract=off, kernel files
//   are never given -mfma or a -march that implies it (-mavx2 alone does
//   not), and no helper that may fuse is called.
// - No reassociation, no reciprocals; float stays float, integer to float
//   conversions are of small integers and exact.
// - Float to integer conversions truncate toward zero, as truncate_int does.
//   They differ from it only outside the int32 range and on NaN, which
//   cannot occur here: from bytes every converted value lies within
//   [-200, 500] (luma within [0, 256), chroma within 128 +- 255 * 0.713,
//   the colours back within 255 + 127 * 1.77), so the vector truncation and
//   the clamp to 0..255 that follows give truncate_clamp_byte's bytes.
// - The table read is per lane, from float(table[i] - 128) computed once
//   per call; the clamped U and V are 0..255, so every index is in range.
// - Everything here has internal linkage apart from the entry point, so no
//   code compiled for a wider instruction set can stand in for a function
//   of the same name used elsewhere.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "pixel/vector/saturation_vectors.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

#include "pixel/vector/pixel_lanes.h"

typedef float F32 __attribute__((vector_size(QTZQ_KERNEL_VECTOR_BYTES)));

F32 to_float(I32 v) { return __builtin_convertvector(v, F32); }

// truncate_clamp_byte for values inside the int32 range.
I32 truncate_clamp_bytes(F32 v) { return clamp_bytes(__builtin_convertvector(v, I32)); }

F32 look_up(const ChromaOffsets& offsets, I32 index) {
    F32 out;
    for (int i = 0; i < kLanes; ++i) out[i] = offsets.offset[index[i]];
    return out;
}

void scale_chroma(unsigned char* block, const ChromaOffsets& offsets) {
    const Channels c = split(block);
    const F32 luma = to_float(c.g) * 0.587f + to_float(c.r) * 0.299f + to_float(c.b) * 0.114f;
    const I32 luma_int = __builtin_convertvector(luma, I32);  // U and V use it unclamped
    const F32 y = to_float(clamp_bytes(luma_int));
    const I32 u = truncate_clamp_bytes(128.0f + to_float(c.b - luma_int) * 0.565f);
    const I32 v = truncate_clamp_bytes(128.0f + to_float(c.r - luma_int) * 0.713f);
    const F32 uf = look_up(offsets, u);
    const F32 vf = look_up(offsets, v);
    join(block, truncate_clamp_bytes(y + vf * 1.403f),
         truncate_clamp_bytes(y + uf * -0.344f + vf * -0.714f),
         truncate_clamp_bytes(y + uf * 1.77f), c.alpha);
}

}  // namespace

void yuv_chroma_pixels(unsigned char* px, std::size_t count, const ChromaOffsets& offsets) {
    for_each_block(px, count, [&](unsigned char* block) { scale_chroma(block, offsets); });
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
