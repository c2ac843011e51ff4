// StyleMilk: a soft, milky pastel look from three material images.
//
// This library's own recipe, built only from its primitives:
//   1. brightness +12 and contrast -12 over the whole photo (Light), which
//      lifts the shadows and flattens the tones toward a light grey;
//   2. saturation -25 in the HSL saturation mode (Saturateconst), which
//      mutes the colours;
//   3. per pixel, material1 screened at opacity 0.5 (a milky haze),
//      material2 soft-lit at full opacity (texture or vignette), and
//      material3 cross-faded in at opacity 0.2 (a colour wash).
// It is deterministic, works in place and only reads the materials. The
// opacities are plain doubles chosen for this recipe.
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"

#include "pixel/blend_kernels.h"
#include "pixel/tone_tables.h"
#include "styles/look_steps.h"

namespace {

constexpr long kMilkBrightness = 12;
constexpr long kMilkContrast = -12;
constexpr long kMilkSaturation = -25;
constexpr long kHslSaturationShift = 1;

constexpr double kHazeOpacity = 0.5;
constexpr double kTextureOpacity = 1.0;
constexpr double kWashOpacity = 0.2;

}  // namespace

void StyleMilk(unsigned char* image, unsigned char* material1, unsigned char* material2,
               unsigned char* material3, int width, int height) {
    unsigned char light[qtzq::kToneTableSize];
    qtzq::brightness_contrast_table(kMilkBrightness, kMilkContrast, light);
    qtzq::Look()
        .maps(qtzq::ChannelMaps::same(light))  // Light(brightness, contrast)
        .span(qtzq::saturation_step(kMilkSaturation, kHslSaturationShift))
        .blend_material(0, [](unsigned char* px, const unsigned char* haze) {
            qtzq::screen_ex(px, haze, kHazeOpacity);
        })
        .blend_material(1, [](unsigned char* px, const unsigned char* texture) {
            qtzq::soft_light_ex(px, texture, kTextureOpacity);
        })
        .blend_material(2, [](unsigned char* px, const unsigned char* wash) {
            qtzq::normal_ex(px, wash, kWashOpacity);
        })
        .run(image, width, height, {material1, material2, material3});
}
