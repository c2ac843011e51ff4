// 256-entry tone tables: the brightness/contrast and gamma builders, and
// the loops that send an image's channels through tables.
#ifndef QTZQ_PIXEL_TONE_TABLES_H
#define QTZQ_PIXEL_TONE_TABLES_H

#include "pixel/image_walk.h"

namespace qtzq {

constexpr int kToneTableSize = 256;

// Light's table: entry i = clamp(trunc(brightness + 128 + (i - 128) * k + 0.5))
// with k = (contrast + 100) / 100, all in single precision.
void brightness_contrast_table(long brightness, long contrast, unsigned char* table);

// LightNew's variant: the index term is (i AND 127), so the table repeats
// every 128 entries. Deliberate.
void repeating_brightness_contrast_table(long brightness, long contrast, unsigned char* table);

// Entry i = trunc(i^(1/gamma) / (255^(1/gamma) / 255)), clamped; gamma > 0.
void gamma_table(float gamma, unsigned char* table);

// Blue, green and red of every pixel through one table each; alpha left alone.
inline void apply_tables(unsigned char* pixels, int width, int height, const unsigned char* blue,
                         const unsigned char* green, const unsigned char* red) {
    for_each_pixel(pixels, width, height, [=](unsigned char* pixel) {
        pixel[0] = blue[pixel[0]];
        pixel[1] = green[pixel[1]];
        pixel[2] = red[pixel[2]];
    });
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_TONE_TABLES_H
