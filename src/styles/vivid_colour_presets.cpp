// Vivid colour ("bao" colour): stronger saturation, then a self overlay
// that adds contrast while black and white stay where they are.
#include <algorithm>

#include "pixel/blend_kernels.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"
#include "styles/look_steps.h"

namespace {

constexpr int kStrongest = 100;
constexpr int kStyleStrength = 20;  // the strength of the one-call preset

}  // namespace

void ABaoColor(unsigned char* image, int width, int height, int strength) {
    const int amount = std::clamp(strength, 0, kStrongest);
    if (amount == 0) return;
    const double opacity = double(amount) / double(kStrongest);
    qtzq::Look()
        .span(qtzq::saturation_matrix_step(amount))
        // The overlay reads a copy of the pixel it changes.
        .blend_self([opacity](unsigned char* px, const unsigned char*) {
            const unsigned char self[4] = {px[0], px[1], px[2], px[3]};
            qtzq::overlay_ex(px, self, opacity);
        })
        .run(image, width, height);
}

void StyleBaoColor(unsigned char* image, int width, int height) {
    ABaoColor(image, width, height, kStyleStrength);
}
