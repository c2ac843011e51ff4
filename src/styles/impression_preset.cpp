// Impression: a faint burn of a fixed light colour, a little more
// saturation, then three tone curves.
#include "pixel/blend_kernels.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"
#include "styles/curve_pass.h"

void StyleImpression(unsigned char* image, int width, int height) {
    static constexpr unsigned char kLightColour[4] = {198, 233, 219, 0};  // B, G, R, A
    constexpr double kBurnOpacity = 0.2;
    constexpr long kSaturationAdd = 15, kHslMode = 1;

    // The order burn, saturation, curves is part of the look.
    qtzq::for_each_pixel(image, width, height, [](unsigned char* px) {
        qtzq::color_burn_ex(px, kLightColour, kBurnOpacity);
    });
    Saturateconst(image, width, height, kSaturationAdd, kHslMode);
    qtzq::apply_curves(image, width, height, qtzq::RgbCurves::from_store(48, 49, 50));
}
