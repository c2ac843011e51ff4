// CColorBalance: shifting the colours of one tonal region.
#include "pixel/colour_balance_curves.h"
#include "pixel/colour_balance_pixels.h"
#include "pixel/lightness_keep.h"
#include "qtzqeffect/pixel.h"

void CColorBalance(bool preserve_luminosity, _TONE_REGION region, int red_shift, int green_shift,
                   int blue_shift, unsigned char* pixels, int rows, int per_row) {
    const qtzq::RgbCurves curves = qtzq::colour_balance_curves(
        {static_cast<int>(region), red_shift, green_shift, blue_shift});
    qtzq::balance_pixels(pixels, rows, per_row, curves, preserve_luminosity,
                         qtzq::keep_int_hls_lightness);
}
