// Dispatch of the soft light span to the vector kernels or the per-pixel
// formula.
#include "pixel/soft_light_span.h"

#include "pixel/blend_common.h"
#include "pixel/blend_formulas.h"
#include "pixel/image_walk.h"
#include "pixel/vector/soft_light.h"
#include "simd/vector_unit.h"

namespace qtzq {

void soft_light_span(unsigned char* pixels, const unsigned char* blend, std::size_t count) {
    if (integer_fast_paths_enabled()) {
#if defined(QTZQ_X86_KERNELS)
        if (active_vector_unit() == VectorUnit::kAvx2) return avx2::soft_light_pixels(pixels, blend, count);
#endif
#if defined(QTZQ_NEON_KERNELS)
        if (active_vector_unit() == VectorUnit::kNeon) return neon::soft_light_pixels(pixels, blend, count);
#endif
        return portable::soft_light_pixels(pixels, blend, count);
    }
    for (std::size_t i = 0; i < count * kBytesPerPixel; i += kBytesPerPixel)
        each_channel(pixels + i, blend + i, soft_light_levels);
}

}  // namespace qtzq
