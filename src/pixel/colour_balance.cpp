// CColorBalance: shifting the colours of one tonal region.
#include <cstddef>

#include "pixel/balance_span.h"
#include "pixel/colour_balance_curves.h"
#include "pixel/colour_balance_pixels.h"
#include "pixel/image_walk.h"
#include "pixel/lightness_keep.h"
#include "qtzqeffect/pixel.h"

void CColorBalance(bool preserve_luminosity, _TONE_REGION region, int red_shift, int green_shift,
                   int blue_shift, unsigned char* pixels, int rows, int per_row) {
    const qtzq::RgbCurves curves = qtzq::colour_balance_curves(
        {static_cast<int>(region), red_shift, green_shift, blue_shift});
    if (!preserve_luminosity) {
        qtzq::balance_pixels(pixels, rows, per_row, curves, false, qtzq::keep_int_hls_lightness);
        return;
    }
    if (pixels == nullptr) return;
    const std::size_t row_bytes = qtzq::pixel_count(per_row, 1) * qtzq::kBytesPerPixel;
    for (int row = 0; row < rows; ++row) {
        qtzq::balance_keep_lightness_span(pixels + static_cast<std::size_t>(row) * row_bytes,
                                          qtzq::pixel_count(per_row, 1), curves);
    }
}
