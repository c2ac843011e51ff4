// The two-step time tunnel: a 240 x 240 mask overlaid on the photo and used
// as the weight map of a zoom blur (first step), then the zoom-blurred
// tunnel faded back into the photo (second step).
#include <cstddef>
#include <cstring>
#include <memory>

#include "pixel/blend_kernels.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/blur.h"
#include "qtzqeffect/styles.h"
#include "styles/zoom_layer.h"

namespace {

constexpr int kMaskSide = 240;
constexpr std::size_t kMaskBytes = std::size_t(kMaskSide) * kMaskSide * qtzq::kBytesPerPixel;
static_assert(kMaskBytes == 230400, "the tunnel mask is a 240 x 240 pixel buffer");

// The overlay strength is the single-precision 0.6 widened to double
// (0.6000000238418579), not the double 0.6. Required as written.
constexpr double kOverlayOpacity = static_cast<double>(0.6f);
static_assert(kOverlayOpacity == 0.6000000238418579, "the overlay strength is float 0.6 widened");

// A photo-sized copy of the 240 x 240 mask: nearest neighbour in both
// directions, so the mask covers any photo and is never read past its end.
// Delete with delete[].
unsigned char* mask_at_photo_size(const unsigned char* mask, int width, int height) {
    auto* scaled = new unsigned char[kMaskBytes];
    std::memcpy(scaled, mask, kMaskBytes);
    // Resample keeps the buffer as it is; the call is part of the recipe.
    Resample(width, height, &scaled, kMaskSide, kMaskSide);
    // Replaces `scaled` by a new[] copy of width x height pixels; it leaves
    // the mask as it is for a 240 x 240 photo and for an empty one.
    RampleBit(width, height, &scaled, kMaskSide, kMaskSide, int(qtzq::kBytesPerPixel));
    return scaled;
}

}  // namespace

unsigned char* StyleChuanYue1(unsigned char* image, unsigned char* material, int width,
                              int height) {
    const std::unique_ptr<unsigned char[]> mask(mask_at_photo_size(material, width, height));
    qtzq::for_each_pixel(image, mask.get(), width, height,
                         [](unsigned char* px, const unsigned char* m) {
                             qtzq::overlay_ex(px, m[2], m[1], m[0], kOverlayOpacity);
                         });
    return qtzq::zoom_blurred_layer(image, mask.get(), width, height);
}

void StyleChuanYue3(unsigned char* image, unsigned char* material, int width, int height) {
    qtzq::blend_layer_by_alpha(image, material, width, height);
}
