// Channel copies: BGRA to packed BGR, and red into the other colour channels.
#include "qtzqeffect/pixel.h"

#include "pixel/image_walk.h"

void tfbitCopy(unsigned char* source, unsigned char* destination, int count) {
    for (int j = 0; j < count; ++j) {
        destination[0] = source[0];
        destination[1] = source[1];
        destination[2] = source[2];
        source += qtzq::kBytesPerPixel;
        destination += 3;
    }
}

void SpliteToR(unsigned char* pixels, int rows, int pixels_per_row) {
    qtzq::for_each_pixel(pixels, pixels_per_row, rows, [](unsigned char* pixel) {
        pixel[0] = pixel[2];
        pixel[1] = pixel[2];
    });
}
