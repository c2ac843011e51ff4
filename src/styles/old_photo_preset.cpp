// Old photo: colour balance per tonal region, two Bezier tone curves, an
// exclusion toward a constant brown and a screened paper material.
#include "pixel/blend_kernels.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/curve.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"

namespace {

constexpr bool kKeepLightness = false;

// Cyan-red, magenta-green, yellow-blue shifts of each tonal region.
void age_colour_balance(unsigned char* image, int width, int height) {
    CColorBalance(kKeepLightness, TONE_REGION_SHADOWS, -11, -20, 10, image, width, height);
    CColorBalance(kKeepLightness, TONE_REGION_MIDTONES, 14, 26, 41, image, width, height);
    CColorBalance(kKeepLightness, TONE_REGION_HIGHLIGHTS, 15, 26, 45, image, width, height);
}

// A curve on all three channels, then a curve on red applied to its output.
void age_tone_curves(unsigned char* image, int width, int height) {
    _POINT all_channels[] = {{0, 0}, {83, 72}, {163, 184}, {255, 255}};
    _POINT red[] = {{0, 0}, {80, 89}, {162, 182}, {255, 255}};
    SFCurve curve;
    curve.GetCurveByPoints(all_channels, 4, CHANNEL_RGB);
    curve.ApplyCurve(CHANNEL_RGB, image, width, height);
    curve.GetCurveByPoints(red, 4, CHANNEL_RED);
    curve.ApplyCurve(CHANNEL_RED, image, width, height);
    curve.Release();
}

}  // namespace

void StyleOldPhoto(unsigned char* image, unsigned char* material, int width, int height) {
    static constexpr unsigned char kBrown[4] = {83, 28, 7, 0};  // B, G, R, A
    constexpr double kBrownOpacity = 1.0;
    // The material's strength is the single-precision 0.8 widened to double
    // (0.800000011920929), not the double 0.8. Required as written.
    constexpr double kMaterialOpacity = static_cast<double>(0.8f);

    age_colour_balance(image, width, height);
    age_tone_curves(image, width, height);
    qtzq::for_each_pixel(image, material, width, height,
                         [](unsigned char* px, const unsigned char* m) {
                             qtzq::exclusion_ex(px, kBrown, kBrownOpacity);
                             qtzq::screen_ex(px, m, kMaterialOpacity);
                         });
}
