// Three tone curves held locally by a preset: one for red, green and blue.
//
// Presets copy the curves they use out of the store before their pixel loop
// so that the loop does three table loads per pixel and nothing else.
#ifndef QTZQ_STYLES_RGB_CURVES_H
#define QTZQ_STYLES_RGB_CURVES_H

#include <cstring>

#include "styles/curve_store.h"

namespace qtzq {

struct RgbCurves {
    unsigned char red[kCurveLength];
    unsigned char green[kCurveLength];
    unsigned char blue[kCurveLength];

    // Curves red_curve, green_curve, blue_curve of the store, in that order.
    static RgbCurves from_store(int red_curve, int green_curve, int blue_curve) {
        RgbCurves curves;
        std::memcpy(curves.red, store_curve(red_curve), kCurveLength);
        std::memcpy(curves.green, store_curve(green_curve), kCurveLength);
        std::memcpy(curves.blue, store_curve(blue_curve), kCurveLength);
        return curves;
    }

    // One store curve for all three channels.
    static RgbCurves from_store(int curve) { return from_store(curve, curve, curve); }

    // Maps blue, green and red of one BGRA pixel, each by its own incoming
    // value; alpha is left alone.
    void apply(unsigned char* pixel) const {
        pixel[0] = blue[pixel[0]];
        pixel[1] = green[pixel[1]];
        pixel[2] = red[pixel[2]];
    }
};

}  // namespace qtzq

#endif  // QTZQ_STYLES_RGB_CURVES_H
