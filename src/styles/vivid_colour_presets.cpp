// Vivid colour ("bao" colour): stronger saturation, then a self overlay
// that adds contrast while black and white stay where they are.
#include <algorithm>

#include "pixel/blend_kernels.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/pixel.h"
#include "qtzqeffect/styles.h"

namespace {

constexpr int kStrongest = 100;
constexpr int kStyleStrength = 20;  // the strength of the one-call preset

}  // namespace

void ABaoColor(unsigned char* image, int width, int height, int strength) {
    const int amount = std::clamp(strength, 0, kStrongest);
    if (amount == 0) return;
    Saturateconst(image, width, height, long(amount));
    const double opacity = double(amount) / double(kStrongest);
    qtzq::for_each_pixel(image, width, height, [opacity](unsigned char* px) {
        const unsigned char self[4] = {px[0], px[1], px[2], px[3]};
        qtzq::overlay_ex(px, self, opacity);
    });
}

void StyleBaoColor(unsigned char* image, int width, int height) {
    ABaoColor(image, width, height, kStyleStrength);
}
