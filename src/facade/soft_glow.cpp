// Qtzqeffect's soft glow: a blurred copy of the photo faded into it by a
// weight image.
#include <algorithm>
#include <cstddef>

#include "pixel/image_walk.h"
#include "qtzqeffect/blur.h"
#include "qtzqeffect/facade.h"

namespace {

constexpr int kUnusedChannels = 7;  // passed to the blur, which ignores it

// The weight byte's scale: 0.003921, a little less than 1/255 on purpose,
// so that even full weight keeps a trace (about 0.015 %) of the photo.
// Applied in double, then rounded to float; required as written.
constexpr double kWeightScale = 0.003921;

// blurred * w + image * v in single precision, blurred product first,
// truncated and stored as the low byte.
unsigned char fade(unsigned char image, unsigned char blurred, float w, float v) {
    const float glow = blurred * w;
    const float kept = image * v;
    const float mixed = glow + kept;  // 0 .. 255.00002: the conversion is in range
    return static_cast<unsigned char>(static_cast<unsigned int>(mixed));
}

}  // namespace

unsigned char* Qtzqeffect::WeakInit(unsigned char* image, int width, int height, int radius) {
    if (!image) return nullptr;
    const std::size_t bytes = qtzq::pixel_count(width, height) * qtzq::kBytesPerPixel;
    auto* copy = new unsigned char[bytes];
    std::copy_n(image, bytes, copy);
    const double r = radius;
    GaussianBlurFilterUtil::GetInst()->CreateBlurEffect(copy, width, height, kUnusedChannels, r, r);
    return copy;
}

int Qtzqeffect::WeakProcess(unsigned char* image, unsigned char* blurred, unsigned char* weight,
                            int width, int height) {
    if (!image || !blurred || !weight) return 0;
    qtzq::for_each_pixel(image, blurred, weight, width, height,
                         [](unsigned char* px, unsigned char* glow, unsigned char* wt) {
                             const float w = static_cast<float>(wt[2] * kWeightScale);
                             const float v = 1.0f - w;
                             for (int c = 2; c >= 0; --c) px[c] = fade(px[c], glow[c], w, v);
                         });
    return 1;
}
