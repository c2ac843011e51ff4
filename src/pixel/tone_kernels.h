// Single-pixel tone steps: fixed additions, integer grey, random noise.
#ifndef QTZQ_PIXEL_TONE_KERNELS_H
#define QTZQ_PIXEL_TONE_KERNELS_H

#include <algorithm>
#include <cstdlib>

#include "pixel/numeric.h"

namespace qtzq {

// Adds the amounts to the colour bytes, saturating at 255.
inline void shift_rgb(unsigned char* pixel, unsigned char red_add, unsigned char green_add,
                      unsigned char blue_add) {
    pixel[0] = static_cast<unsigned char>(std::min(pixel[0] + blue_add, 255));
    pixel[2] = static_cast<unsigned char>(std::min(pixel[2] + red_add, 255));
    pixel[1] = static_cast<unsigned char>(std::min(pixel[1] + green_add, 255));
}

// Integer luma: weights 306, 601, 117 sum to 1024; no rounding term.
inline unsigned char grey_level(const unsigned char* pixel) {
    const unsigned weighted = 306u * pixel[2] + 601u * pixel[1] + 117u * pixel[0];
    return static_cast<unsigned char>(weighted >> 10);
}

inline void set_grey(unsigned char* pixel) {
    const unsigned char grey = grey_level(pixel);
    pixel[0] = pixel[1] = pixel[2] = grey;
}

// rand() scaled to 0..1 by exactly 2^-31, multiplied in single precision.
inline double random_unit() {
    const float kRandScale = 4.656612873077392578125e-10f;  // 2^-31
    return double(float(std::rand()) * kRandScale);
}

// One channel plus trunc((u - 0.5) * amount), clamped.
inline unsigned char noisy_level(unsigned char level, double amount) {
    const long long offset = truncate_int((random_unit() - 0.5) * amount);
    return clamp_byte(level + offset);
}

// Blue, then green, then red: one rand() call each, in that order.
inline void add_noise(unsigned char* pixel, long amount) {
    const double width = double(target_long(amount));
    pixel[0] = noisy_level(pixel[0], width);
    pixel[1] = noisy_level(pixel[1], width);
    pixel[2] = noisy_level(pixel[2], width);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_TONE_KERNELS_H
