// Whole-image curve pass: blue, green and red of every pixel through three
// locally held tone curves, alpha left alone.
#ifndef QTZQ_STYLES_CURVE_PASS_H
#define QTZQ_STYLES_CURVE_PASS_H

#include "pixel/image_walk.h"
#include "styles/rgb_curves.h"

namespace qtzq {

inline void apply_curves(unsigned char* image, int width, int height, const RgbCurves& curves) {
    for_each_pixel(image, width, height, [&curves](unsigned char* px) { curves.apply(px); });
}

}  // namespace qtzq

#endif  // QTZQ_STYLES_CURVE_PASS_H
