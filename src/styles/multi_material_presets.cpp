// Presets that blend two or three material images into the photo, with
// or without a tone-curve pass. The materials advance in step with the
// photo and are only read.
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"

#include "pixel/blend_kernels.h"
#include "pixel/soft_light_span.h"
#include "pixel/tone_tables.h"
#include "styles/look.h"

using qtzq::ChannelMaps;
using qtzq::Look;
using qtzq::RgbCurves;
using qtzq::composite_color_ex;

namespace {

constexpr double kFullOpacity = 1.0;

// Single-precision 0.8 and 0.6 widened to double: required as written.
constexpr double kJinDianFirstOpacity = static_cast<double>(0.8f);
constexpr double kJinDianSecondOpacity = static_cast<double>(0.6f);
static_assert(kJinDianFirstOpacity == 0.800000011920929, "float 0.8 widened");
static_assert(kJinDianSecondOpacity == 0.6000000238418579, "float 0.6 widened");

// The brightness step between the two passes of StyleWarm.
constexpr long kWarmBrightness = 0;
constexpr long kWarmContrast = -10;

}  // namespace

void StyleJinDian(unsigned char* image, unsigned char* material1, unsigned char* material2,
                  int width, int height) {
    Look()
        .blend_self([](unsigned char* px, const unsigned char* self) {
            composite_color_ex(px, self, kFullOpacity);
        })
        .blend_material(0, [](unsigned char* px, const unsigned char* m) {
            composite_color_ex(px, m, kJinDianFirstOpacity);
        })
        .blend_material(1, [](unsigned char* px, const unsigned char* m) {
            composite_color_ex(px, m, kJinDianSecondOpacity);
        })
        .curves(RgbCurves::from_store(35))
        .run(image, width, height, {material1, material2});
}

void StyleWarm(unsigned char* image, unsigned char* material1, unsigned char* material2, int width,
               int height) {
    unsigned char light[qtzq::kToneTableSize];
    qtzq::brightness_contrast_table(kWarmBrightness, kWarmContrast, light);
    Look()
        .curves(RgbCurves::from_store(36, 37, 38))
        .maps(ChannelMaps::same(light))  // Light(brightness, contrast)
        .blend_material(0, [](unsigned char* px, const unsigned char* m) {
            qtzq::multiple_ex(px, m, kFullOpacity);
        })
        .blend_material(1, [](unsigned char* px, const unsigned char* m) {
            qtzq::soft_light_ex(px, m, kFullOpacity);
        })
        .run(image, width, height, {material1, material2});
}

void StyleFenHongJiaRen(unsigned char* image, unsigned char* material1, unsigned char* material2,
                        unsigned char* material3, int width, int height) {
    Look look;
    for (int k = 0; k < 3; ++k)
        look.blend_material(
            k, [](unsigned char* px, const unsigned char* m) { composite_color_ex(px, m, kFullOpacity); },
            qtzq::soft_light_span);
    look.run(image, width, height, {material1, material2, material3});
}
