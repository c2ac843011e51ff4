// Builders of the brightness/contrast and gamma tables.
#include "pixel/tone_tables.h"

#include "pixel/numeric.h"
#include "math/portable_math.h"

namespace qtzq {
namespace {

// Both brightness/contrast tables: entry = base + index_term * slope + 0.5,
// where the product is rounded to float before the sums. Single precision
// throughout is required: it decides which entries land on .5 boundaries.
struct LightLine {
    float base;   // brightness + 128
    float slope;  // (contrast + 100) / 100

    LightLine(long brightness, long contrast)
        : base(float(target_long(brightness) + 128)),
          slope(float(target_long(contrast) + 100) / 100.0f) {}

    unsigned char at(int index_term) const {
        const float scaled = float(index_term) * slope;
        return truncate_clamp_byte(base + scaled + 0.5f);
    }
};

}  // namespace

void brightness_contrast_table(long brightness, long contrast, unsigned char* table) {
    const LightLine line(brightness, contrast);
    for (int i = 0; i < kToneTableSize; ++i) table[i] = line.at(i - 128);
}

void repeating_brightness_contrast_table(long brightness, long contrast, unsigned char* table) {
    const LightLine line(brightness, contrast);
    for (int i = 0; i < kToneTableSize; ++i) table[i] = line.at(i & 127);
}

void gamma_table(float gamma, unsigned char* table) {
    // The reciprocal is taken in single precision, then used in double.
    // The powers are correctly rounded, hence the same on every CPU.
    const float inverse = 1.0f / gamma;
    const double exponent = inverse;
    const double scale = portable_pow(255.0, exponent) / 255.0;
    for (int i = 0; i < kToneTableSize; ++i) {
        table[i] = truncate_clamp_byte(portable_pow(double(i), exponent) / scale);
    }
}

}  // namespace qtzq
