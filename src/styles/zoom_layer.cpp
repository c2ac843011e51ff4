#include "styles/zoom_layer.h"

#include <cstring>

#include "pixel/blend_kernels.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/blur.h"

namespace qtzq {

unsigned char* zoom_blurred_layer(unsigned char* image, unsigned char* weights, int width,
                                  int height) {
    const std::size_t bytes = pixel_count(width, height) * kBytesPerPixel;
    auto* layer = new unsigned char[bytes];
    if (bytes == 0) return layer;
    std::memcpy(layer, image, bytes);
    RadiusZoomBlur(layer, image, weights, width, height);
    return layer;
}

void blend_layer_by_alpha(unsigned char* image, unsigned char* layer, int width, int height) {
    for_each_pixel(image, layer, width, height, [](unsigned char* px, const unsigned char* over) {
        normal_ex(px, over, over[3] / 255.0);
    });
}

}  // namespace qtzq
