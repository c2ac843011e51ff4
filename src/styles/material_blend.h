// One blend of a whole material image over the photo: blend(photo pixel,
// material pixel, opacity) for every pixel, the material advancing in step
// with the photo and only read.
#ifndef QTZQ_STYLES_MATERIAL_BLEND_H
#define QTZQ_STYLES_MATERIAL_BLEND_H

#include "pixel/image_walk.h"

namespace qtzq {

template <typename Blend>
void blend_material(unsigned char* image, unsigned char* material, int width, int height,
                    Blend blend, double opacity) {
    for_each_pixel(image, material, width, height,
                   [&](unsigned char* px, unsigned char* m) { blend(px, m, opacity); });
}

}  // namespace qtzq

#endif  // QTZQ_STYLES_MATERIAL_BLEND_H
