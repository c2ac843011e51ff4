// The pixel loop shared by CColorBalance and its fixed-setting variants.
#ifndef QTZQ_PIXEL_COLOUR_BALANCE_PIXELS_H
#define QTZQ_PIXEL_COLOUR_BALANCE_PIXELS_H

#include "pixel/image_walk.h"
#include "pixel/lightness_keep.h"
#include "styles/rgb_curves.h"

namespace qtzq {

// Maps blue, green and red of rows x per_row pixels through the curves and,
// when `keep_lightness` is set, hands each pixel with its incoming colour to
// keep(pixel, before). Nothing happens for a null buffer or a count below 1.
template <typename Keep>
void balance_pixels(unsigned char* pixels, int rows, int per_row, const RgbCurves& curves,
                    bool keep_lightness, Keep keep) {
    if (pixels == nullptr) return;
    for_each_pixel(pixels, per_row, rows, [&](unsigned char* pixel) {
        const IncomingColour before = {pixel[2], pixel[1], pixel[0]};
        curves.apply(pixel);
        if (keep_lightness) keep(pixel, before);
    });
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_COLOUR_BALANCE_PIXELS_H
