// Exported table look-ups and the tone adjustments built on tables:
// brightness/contrast and gamma.
#include "qtzqeffect/pixel.h"

#include "pixel/tone_tables.h"

using namespace qtzq;

void Lut(unsigned char* pixels, unsigned char* table, int width, int height) {
    apply_tables(pixels, width, height, table, table, table);
}

void LutEx(unsigned char* pixels, int width, int height, unsigned char* red_table,
           unsigned char* green_table, unsigned char* blue_table, unsigned char* alpha_table) {
    if (pixels == nullptr) return;
    apply_tables(pixels, width, height, blue_table, green_table, red_table);
    if (alpha_table == nullptr) return;
    for_each_pixel(pixels, width, height,
                   [=](unsigned char* pixel) { pixel[3] = alpha_table[pixel[3]]; });
}

void Light(unsigned char* pixels, int width, int height, long brightness, long contrast) {
    if (pixels == nullptr) return;
    unsigned char table[kToneTableSize];
    brightness_contrast_table(brightness, contrast, table);
    apply_tables(pixels, width, height, table, table, table);
}

void LightNew(unsigned char* pixels, unsigned char* table, int, int, long brightness,
              long contrast) {
    if (pixels == nullptr) return;
    repeating_brightness_contrast_table(brightness, contrast, table);
}

void Bright(unsigned char* pixels, int width, int height, int brightness) {
    Light(pixels, width, height, brightness, 0);
}

void Contrast(unsigned char* pixels, int width, int height, int contrast) {
    Light(pixels, width, height, 0, contrast);
}

void BrightContrastSaturation(unsigned char* pixels, int width, int height, int brightness,
                              int contrast, int saturation) {
    if (brightness != 0 || contrast != 0) Light(pixels, width, height, brightness, contrast);
    if (saturation != 0) Saturateconst(pixels, width, height, saturation, 1);
}

void GammaRGB(unsigned char* pixels, int width, int height, float red_gamma, float green_gamma,
              float blue_gamma) {
    if (pixels == nullptr) return;
    // Refuses the whole call unless every gamma is above 0 (NaN included).
    if (!(red_gamma > 0.0f && green_gamma > 0.0f && blue_gamma > 0.0f)) return;
    unsigned char red[kToneTableSize], green[kToneTableSize], blue[kToneTableSize];
    gamma_table(red_gamma, red);
    gamma_table(green_gamma, green);
    gamma_table(blue_gamma, blue);
    apply_tables(pixels, width, height, blue, green, red);
}
