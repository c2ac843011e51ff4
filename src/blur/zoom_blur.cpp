// RadiusZoomBlur: a weighted radial blur toward the image centre, all in
// 16.16 fixed point. The loop here, one pixel and its 97 taps at a time, is
// the reference; the fast paths (zoom_strips.cpp, vector/zoom_strips_avx2.cpp)
// give the same bytes and run unless the scalar path is forced. The plain
// strips are integer C++ and run on every CPU, those without a vector unit
// included.
#include "blur/zoom_taps.h"
#include "qtzqeffect/blur.h"
#include "simd/vector_unit.h"

namespace {

void zoom_blur_reference(unsigned char* dst, const unsigned char* src,
                         const unsigned char* weights, int width, int height) {
    const qtzq::ZoomAxis ax(width), ay(height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            qtzq::write_zoomed_pixel(
                dst + (std::int64_t(y) * width + x) * qtzq::kZoomPixelBytes,
                qtzq::zoom_pixel_sums(src, weights, width, ax, ay, x, y));
}

}  // namespace

void RadiusZoomBlur(unsigned char* dst, unsigned char* src, unsigned char* weights, int width,
                    int height) {
    if (width < 1 || height < 1) return;
    if (!qtzq::integer_fast_paths_enabled()) {
        zoom_blur_reference(dst, src, weights, width, height);
        return;
    }
#if defined(QTZQ_X86_KERNELS)
    if (qtzq::active_vector_unit() == qtzq::VectorUnit::kAvx2) {
        qtzq::avx2::zoom_blur_strips(dst, src, weights, width, height);
        return;
    }
#endif
    qtzq::zoom_blur_strips(dst, src, weights, width, height);
}
