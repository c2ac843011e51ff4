// Presets that combine the photo with one material image of its size, with
// one blend mode before or after a tone-curve pass: each a recipe for the
// look engine. The material advances in step with the photo and is only
// read.
#include "qtzqeffect/styles.h"

#include <utility>

#include "pixel/blend_kernels.h"
#include "pixel/soft_light_span.h"
#include "styles/look.h"

using qtzq::Look;
using qtzq::RgbCurves;

namespace {

constexpr double kFullOpacity = 1.0;

// The halo's warm white (blue 241, green 242, red 255, alpha 255), pulled in
// at single-precision 0.15 widened to double: required as written.
constexpr unsigned char kHaloColour[4] = {241, 242, 255, 255};
constexpr double kHaloOpacity = static_cast<double>(0.15f);
static_assert(kHaloOpacity == 0.15000000596046448, "the halo pull is float 0.15 widened");

// Curves first, then blend(pixel, material pixel), a channel blend.
void curves_then_blend(unsigned char* image, unsigned char* material, int width, int height,
                       const RgbCurves& curves, qtzq::ChannelBlend blend) {
    Look().curves(curves).blend_material(0, std::move(blend)).run(image, width, height, {material});
}

void screen_full(unsigned char* px, const unsigned char* m) {
    qtzq::screen_ex(px, m, kFullOpacity);
}

// Soft light at the material's own alpha times 0.7, all in single
// precision: (alpha * 0.7f) / 255.0f, then widened. Required as written.
// Worked out once for each alpha.
struct AlphaStrengths {
    double of[256];

    AlphaStrengths() {
        const float kStrength = 0.7f;
        const float kAlphaScale = 255.0f;
        for (int alpha = 0; alpha < 256; ++alpha)
            of[alpha] = static_cast<double>(static_cast<float>(alpha) * kStrength / kAlphaScale);
    }
};

void soft_light_by_alpha(unsigned char* px, const unsigned char* m) {
    static const AlphaStrengths strengths;
    qtzq::soft_light_ex(px, m, strengths.of[m[3]]);
}

}  // namespace

void StyleLomoNight(unsigned char* image, unsigned char* material, int width, int height) {
    curves_then_blend(image, material, width, height, RgbCurves::from_store(11), screen_full);
}

void StyleLomoSnow(unsigned char* image, unsigned char* material, int width, int height) {
    curves_then_blend(image, material, width, height, RgbCurves::from_store(12, 13, 14),
                      screen_full);
}

void StyleLomoChristmas(unsigned char* image, unsigned char* material, int width, int height) {
    curves_then_blend(image, material, width, height, RgbCurves::from_store(15, 16, 17),
                      screen_full);
}

void StyleBrightRed(unsigned char* image, unsigned char* material, int width, int height) {
    // The other way round on purpose: the screened pixel goes through the
    // curves.
    Look()
        .blend_material(0, screen_full)
        .curves(RgbCurves::from_store(18, 19, 20))
        .run(image, width, height, {material});
}

void StyleLomoStar(unsigned char* image, unsigned char* material, int width, int height) {
    Look()
        .blend_material(
            0, [](unsigned char* px, const unsigned char* m) { qtzq::soft_light_ex(px, m, kFullOpacity); },
            qtzq::soft_light_span)
        .run(image, width, height, {material});
}

void StyleReverse(unsigned char* image, unsigned char* material, int width, int height) {
    // The soft light's strength comes from the material's alpha.
    Look()
        .curves(RgbCurves::from_store(21, 22, 23))
        .blend_material_by_alpha(0, soft_light_by_alpha)
        .run(image, width, height, {material});
}

void StyleLomoHalo(unsigned char* image, unsigned char* material, int width, int height) {
    Look()
        .curves(RgbCurves::from_store(34))
        .blend_material(0, screen_full)
        .blend_constant(kHaloColour, [](unsigned char* px, const unsigned char* halo) {
            qtzq::normal_ex(px, halo, kHaloOpacity);
        })
        .run(image, width, height, {material});
}
