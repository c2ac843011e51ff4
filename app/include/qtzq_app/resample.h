// Image scaling for the applications: bilinear (materials brought to a
// photo's size) and box averaging (thumbnails).
#ifndef QTZQ_APP_RESAMPLE_H
#define QTZQ_APP_RESAMPLE_H

#include "qtzq_app/png_io.h"

namespace qtzq_app {

// Bilinear scaling of all four channels, pixel centres aligned; edges are
// clamped. The result is exactly `width` x `height`.
BgraImage scale_bilinear(const BgraImage& source, int width, int height);

// Shrinks by averaging every source pixel that falls into each target pixel
// (falls back to bilinear when enlarging).
BgraImage scale_area(const BgraImage& source, int width, int height);

// The size that fits within `max_width` x `max_height` keeping the aspect
// ratio (never larger than the source, never below 1).
void fit_size(int width, int height, int max_width, int max_height, int& out_width,
              int& out_height);

}  // namespace qtzq_app

#endif  // QTZQ_APP_RESAMPLE_H
