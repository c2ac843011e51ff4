// Presets that blend two or three material images into the photo, with
// or without a tone-curve pass. The materials advance in step with the
// photo and are only read.
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"

#include "pixel/blend_kernels.h"
#include "pixel/image_walk.h"
#include "styles/curve_pass.h"
#include "styles/rgb_curves.h"

using qtzq::RgbCurves;
using qtzq::composite_color_ex;
using qtzq::for_each_pixel;

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
    const RgbCurves curve = RgbCurves::from_store(35);
    for_each_pixel(image, material1, material2, width, height,
                   [&](unsigned char* px, unsigned char* m1, unsigned char* m2) {
                       composite_color_ex(px, px, kFullOpacity);
                       composite_color_ex(px, m1, kJinDianFirstOpacity);
                       composite_color_ex(px, m2, kJinDianSecondOpacity);
                       curve.apply(px);
                   });
}

void StyleWarm(unsigned char* image, unsigned char* material1, unsigned char* material2, int width,
               int height) {
    qtzq::apply_curves(image, width, height, RgbCurves::from_store(36, 37, 38));
    Light(image, width, height, kWarmBrightness, kWarmContrast);
    for_each_pixel(image, material1, material2, width, height,
                   [](unsigned char* px, unsigned char* m1, unsigned char* m2) {
                       qtzq::multiple_ex(px, m1, kFullOpacity);
                       qtzq::soft_light_ex(px, m2, kFullOpacity);
                   });
}

void StyleFenHongJiaRen(unsigned char* image, unsigned char* material1, unsigned char* material2,
                        unsigned char* material3, int width, int height) {
    for_each_pixel(image, material1, material2, material3, width, height,
                   [](unsigned char* px, unsigned char* m1, unsigned char* m2, unsigned char* m3) {
                       composite_color_ex(px, m1, kFullOpacity);
                       composite_color_ex(px, m2, kFullOpacity);
                       composite_color_ex(px, m3, kFullOpacity);
                   });
}
