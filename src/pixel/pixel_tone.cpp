// Exported single-pixel tone steps: additions, grey and noise.
#include "qtzqeffect/pixel.h"

#include "pixel/tone_kernels.h"

void ShiftRGBEx(unsigned char* pixel, unsigned char red_add, unsigned char green_add,
                unsigned char blue_add) {
    qtzq::shift_rgb(pixel, red_add, green_add, blue_add);
}

void SetGrayScaleEx(unsigned char* pixel) { qtzq::set_grey(pixel); }

void SetGrayScaleExNew(unsigned char* pixel, unsigned char* grey) {
    *grey = qtzq::grey_level(pixel);
}

void NoiseEx(unsigned char* pixel, long amount) { qtzq::add_noise(pixel, amount); }

// A second exported name for the same behaviour; applications use both.
void NoiseExNew(unsigned char* pixel, long amount) { qtzq::add_noise(pixel, amount); }
