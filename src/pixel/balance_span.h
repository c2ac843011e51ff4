// Colour balance keeping lightness over a span of BGRA pixels, the per-row
// (or per-strip) step of CColorBalance(true, ...).
#ifndef QTZQ_PIXEL_BALANCE_SPAN_H
#define QTZQ_PIXEL_BALANCE_SPAN_H

#include <cstddef>

#include "pixel/lightness_keep.h"
#include "styles/rgb_curves.h"

namespace qtzq {

// The reference for one pixel: blue, green and red through the curves, then
// the lightness of the incoming colour put back in integer HLS.
inline void balance_keep_lightness_pixel(unsigned char* pixel, const RgbCurves& curves) {
    const IncomingColour before = {pixel[2], pixel[1], pixel[0]};
    curves.apply(pixel);
    keep_int_hls_lightness(pixel, before);
}

// balance_keep_lightness_pixel for `count` pixels from `pixels` (alpha
// untouched), on the vector kernels while the integer fast paths are on.
void balance_keep_lightness_span(unsigned char* pixels, std::size_t count, const RgbCurves& curves);

}  // namespace qtzq

#endif  // QTZQ_PIXEL_BALANCE_SPAN_H
