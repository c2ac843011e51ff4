#include "pixel/balance_span.h"

#include <cstring>

#include "pixel/image_walk.h"
#include "pixel/vector/balance_lightness.h"
#include "simd/vector_unit.h"

namespace qtzq {

namespace {

using Kernel = void (*)(const BalanceLightnessJob&);

Kernel kernel() {
#if defined(QTZQ_X86_KERNELS)
    if (active_vector_unit() == VectorUnit::kAvx2) return avx2::balance_keep_lightness;
#endif
#if defined(QTZQ_NEON_KERNELS)
    if (active_vector_unit() == VectorUnit::kNeon) return neon::balance_keep_lightness;
#endif
    return portable::balance_keep_lightness;
}

}  // namespace

void balance_keep_lightness_span(unsigned char* pixels, std::size_t count,
                                 const RgbCurves& curves) {
    if (!integer_fast_paths_enabled()) {
        for (std::size_t i = 0; i < count; ++i)
            balance_keep_lightness_pixel(pixels + i * kBytesPerPixel, curves);
        return;
    }
    if (count == 0) return;
    PaddedCurves padded = {};
    std::memcpy(padded.levels, curves.red, 256);
    std::memcpy(padded.levels + 256, curves.green, 256);
    std::memcpy(padded.levels + 512, curves.blue, 256);
    kernel()({pixels, count, &padded, &int_hls_tables()});
}

}  // namespace qtzq
