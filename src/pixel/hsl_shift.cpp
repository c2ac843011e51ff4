#include "pixel/hsl_shift.h"

#include "pixel/image_walk.h"
#include "pixel/saturation_kernels.h"
#include "pixel/vector/hsl_shift.h"
#include "simd/vector_unit.h"

namespace qtzq {

void shift_hsl_saturation_span(unsigned char* pixels, std::size_t count,
                               const unsigned char* table) {
#if defined(QTZQ_X86_KERNELS)
    switch (active_vector_unit()) {
        case VectorUnit::kAvx2:
            avx2::shift_hsl_saturation_span(pixels, count, table);
            return;
        case VectorUnit::kSse2:
            sse2::shift_hsl_saturation_span(pixels, count, table);
            return;
        case VectorUnit::kScalar:
            break;
    }
#endif
    for (std::size_t i = 0; i < count; ++i) shift_hsl_saturation(pixels + i * kBytesPerPixel, table);
}

}  // namespace qtzq
