// Impression: a faint burn of a fixed light colour, a little more
// saturation, then three tone curves.
#include "pixel/blend_kernels.h"
#include "qtzqeffect/styles.h"
#include "styles/look_steps.h"

void StyleImpression(unsigned char* image, int width, int height) {
    static constexpr unsigned char kLightColour[4] = {198, 233, 219, 0};  // B, G, R, A
    constexpr double kBurnOpacity = 0.2;
    constexpr long kSaturationAdd = 15, kHslMode = 1;

    // The order burn, saturation, curves is part of the look.
    qtzq::Look()
        .blend_constant(kLightColour, [](unsigned char* px, const unsigned char* light) {
            qtzq::color_burn_ex(px, light, kBurnOpacity);
        })
        .span(qtzq::saturation_step(kSaturationAdd, kHslMode))
        .curves(qtzq::RgbCurves::from_store(48, 49, 50))
        .run(image, width, height);
}
