// The three colour-balance functions with fixed settings.
//
// Their curves are the committed table; with lightness preserved they use
// the double-precision HLS pair (rather than CColorBalance's integer one)
// and restore the incoming lightness (max + min) * 0.0019647, unpacking
// HLStoRGB's packed value as blue, green, red in bits 0-7, 8-15, 16-23 for
// all three variants.
#include <cstring>

#include "pixel/colour_balance_pixels.h"
#include "pixel/colour_balance_variants.h"
#include "pixel/lightness_keep.h"
#include "qtzqeffect/pixel.h"

namespace {

// Variant `variant`'s curves: table entries 3 * variant .. 3 * variant + 2.
qtzq::RgbCurves variant_curves(int variant) {
    const unsigned char(*table)[256] = qtzq::kColourBalanceVariantCurves + 3 * variant;
    qtzq::RgbCurves curves;
    std::memcpy(curves.red, table[0], sizeof curves.red);
    std::memcpy(curves.green, table[1], sizeof curves.green);
    std::memcpy(curves.blue, table[2], sizeof curves.blue);
    return curves;
}

void balance_with_variant(int variant, bool preserve_luminosity, unsigned char* pixels, int rows,
                          int per_row) {
    qtzq::balance_pixels(pixels, rows, per_row, variant_curves(variant), preserve_luminosity,
                         qtzq::keep_double_hls_lightness);
}

}  // namespace

void CColorBalance_0_13_0_21(bool preserve_luminosity, _TONE_REGION, int, int, int,
                             unsigned char* pixels, int rows, int per_row) {
    balance_with_variant(0, preserve_luminosity, pixels, rows, per_row);
}

void CColorBalance_1_2_0_8(bool preserve_luminosity, _TONE_REGION, int, int, int,
                           unsigned char* pixels, int rows, int per_row) {
    balance_with_variant(1, preserve_luminosity, pixels, rows, per_row);
}

void CColorBalance_2_0_0_s13(bool preserve_luminosity, _TONE_REGION, int, int, int,
                             unsigned char* pixels, int rows, int per_row) {
    balance_with_variant(2, preserve_luminosity, pixels, rows, per_row);
}
