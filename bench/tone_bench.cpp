// Whole-image tone primitives: brightness/contrast, gamma, both
// saturations, colour balance, automatic levels and a Bezier tone curve.
#include <qtzqeffect/curve.h>
#include <qtzqeffect/pixel.h>

#include "suites.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

void light(BgraImage& photo) { Light(photo.data(), photo.width, photo.height, 12, 20); }

void gamma(BgraImage& photo) { GammaRGB(photo.data(), photo.width, photo.height, 2.2f, 1.8f, 1.4f); }

void matrix_saturation(BgraImage& photo) {
    Saturateconst(photo.data(), photo.width, photo.height, 30);
}

void hsl_saturation(BgraImage& photo) {
    Saturateconst(photo.data(), photo.width, photo.height, 30, 1);
}

void chroma_saturation(BgraImage& photo) {
    Saturateconst(photo.data(), photo.width, photo.height, 30, 2);
}

void colour_balance(BgraImage& photo) {
    CColorBalance(false, TONE_REGION_MIDTONES, 20, -10, 15, photo.data(), photo.height, photo.width);
}

void colour_balance_keeping_lightness(BgraImage& photo) {
    CColorBalance(true, TONE_REGION_MIDTONES, 20, -10, 15, photo.data(), photo.height, photo.width);
}

void auto_levels(BgraImage& photo) { AutoColorLevel(photo.data(), photo.width, photo.height, true); }

// Drawing the curve is part of the pass: an application draws it once per
// photo.
void s_curve(BgraImage& photo) {
    _POINT points[] = {{0, 0}, {64, 50}, {128, 128}, {192, 206}, {255, 255}};
    SFCurve curve;
    curve.GetCurveByPoints(points, 5, CHANNEL_RGB);
    curve.ApplyCurve(CHANNEL_RGB, photo.data(), photo.width, photo.height);
}

}  // namespace

void register_tone() {
    add_pass("tone/Light", light, "opencv/LUT");
    add_pass("tone/GammaRGB", gamma, "opencv/LUT");
    add_pass("tone/Saturateconst_matrix", matrix_saturation);
    add_pass("tone/Saturateconst_matrix/scalar", on_scalar_path(matrix_saturation));
    add_pass("tone/Saturateconst_hsl", hsl_saturation);
    add_pass("tone/Saturateconst_hsl/scalar", on_scalar_path(hsl_saturation));
    add_pass("tone/Saturateconst_chroma", chroma_saturation);
    add_pass("tone/Saturateconst_chroma/scalar", on_scalar_path(chroma_saturation));
    add_pass("levels/CColorBalance", colour_balance, "opencv/LUT");
    add_pass("levels/CColorBalance_preserve", colour_balance_keeping_lightness);
    add_pass("levels/CColorBalance_preserve/scalar", on_scalar_path(colour_balance_keeping_lightness));
    add_pass("levels/AutoColorLevel", auto_levels);
    add_pass("curve/SFCurve", s_curve, "opencv/LUT");
}

}  // namespace qtzq_bench
