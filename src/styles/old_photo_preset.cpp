// Old photo: colour balance per tonal region, two Bezier tone curves, an
// exclusion toward a constant brown and a screened paper material.
#include "pixel/blend_kernels.h"
#include "pixel/colour_balance_curves.h"
#include "qtzqeffect/curve.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"
#include "styles/look.h"

namespace {

using qtzq::ChannelMaps;

// Cyan-red, magenta-green, yellow-blue shifts of one tonal region, without
// keeping lightness: three maps.
ChannelMaps balance(_TONE_REGION region, int red_shift, int green_shift, int blue_shift) {
    return ChannelMaps::of(
        qtzq::colour_balance_curves({static_cast<int>(region), red_shift, green_shift, blue_shift}));
}

// What SFCurve::ApplyCurve(channel) does to a pixel with the curve as it is now.
ChannelMaps curve_maps(SFCurve& curve, Channel channel) {
    return qtzq::channel_maps_of([&](unsigned char* pixel) { curve.ApplyCurve(channel, pixel, 1, 1); });
}

}  // namespace

void StyleOldPhoto(unsigned char* image, unsigned char* material, int width, int height) {
    static constexpr unsigned char kBrown[4] = {83, 28, 7, 0};  // B, G, R, A
    constexpr double kBrownOpacity = 1.0;
    // The material's strength is the single-precision 0.8 widened to double
    // (0.800000011920929), not the double 0.8. Required as written.
    constexpr double kMaterialOpacity = static_cast<double>(0.8f);

    // A curve on all three channels, then a curve on red applied to its output.
    _POINT all_channels[] = {{0, 0}, {83, 72}, {163, 184}, {255, 255}};
    _POINT red[] = {{0, 0}, {80, 89}, {162, 182}, {255, 255}};
    SFCurve curve;
    curve.GetCurveByPoints(all_channels, 4, CHANNEL_RGB);
    const ChannelMaps all_curve = curve_maps(curve, CHANNEL_RGB);
    curve.GetCurveByPoints(red, 4, CHANNEL_RED);
    const ChannelMaps red_curve = curve_maps(curve, CHANNEL_RED);
    curve.Release();

    qtzq::Look()
        .maps(balance(TONE_REGION_SHADOWS, -11, -20, 10))
        .maps(balance(TONE_REGION_MIDTONES, 14, 26, 41))
        .maps(balance(TONE_REGION_HIGHLIGHTS, 15, 26, 45))
        .maps(all_curve)
        .maps(red_curve)
        .blend_constant(kBrown, [](unsigned char* px, const unsigned char* brown) {
            qtzq::exclusion_ex(px, brown, kBrownOpacity);
        })
        .blend_material(0, [](unsigned char* px, const unsigned char* m) {
            qtzq::screen_ex(px, m, kMaterialOpacity);
        })
        .run(image, width, height, {material});
}
