// Saturation steps on one pixel: the 3 x 3 fixed-point matrix, and the
// two colour-space routes (HSL saturation table, YUV chroma table).
#ifndef QTZQ_PIXEL_SATURATION_KERNELS_H
#define QTZQ_PIXEL_SATURATION_KERNELS_H

#include "pixel/hsl_kernels.h"
#include "pixel/linear_colour_spaces.h"
#include "pixel/numeric.h"

namespace qtzq {

// Nine 8.8 fixed-point entries in row order; rows give red, green, blue and
// columns weigh red, green, blue.
struct SaturationMatrix {
    int m[9];
};

// Luma weights of the matrix, in 1/256.
constexpr int kMatrixLumaRed = 79;
constexpr int kMatrixLumaGreen = 156;
constexpr int kMatrixLumaBlue = 21;

// One matrix row applied to (r, g, b): the sum shifted right by 8
// (arithmetic) and clamped. The sum is formed in 64 bits so that no matrix
// can overflow it; every sum that fits 32 bits gives the same value.
inline unsigned char matrix_row(const int* row, int r, int g, int b) {
    const long long sum = 1LL * row[0] * r + 1LL * row[1] * g + 1LL * row[2] * b;
    return clamp_byte(sum >> 8);
}

// All three rows read the incoming R, G, B.
inline void apply_saturation_matrix(unsigned char* pixel, const int* m) {
    const int r = pixel[2], g = pixel[1], b = pixel[0];
    pixel[2] = matrix_row(m + 0, r, g, b);
    pixel[1] = matrix_row(m + 3, r, g, b);
    pixel[0] = matrix_row(m + 6, r, g, b);
}

// The matrix of the 4-argument Saturateconst. Positive amounts count three
// times (deliberate); the scale is built in double, then everything else in
// single precision, and each entry is truncated on its own.
inline SaturationMatrix saturation_matrix(long amount) {
    const long long a = target_long(amount);
    const long long weighted = a > 0 ? 3 * a : a;
    const float s = float(1.0 + double(weighted) * 0.01);
    const float t = 1.0f - s;
    const float diagonal = s * 256.0f;
    const float wr = t * float(kMatrixLumaRed);
    const float wg = t * float(kMatrixLumaGreen);
    const float wb = t * float(kMatrixLumaBlue);
    const int r = truncate_int(wr), g = truncate_int(wg), b = truncate_int(wb);
    return SaturationMatrix{{truncate_int(wr + diagonal), g, b,
                             r, truncate_int(wg + diagonal), b,
                             r, g, truncate_int(wb + diagonal)}};
}

// Mode 1's table: T[i] = clamp(i + amount).
inline void hsl_shift_table(long amount, unsigned char* table) {
    const long long a = target_long(amount);
    for (int i = 0; i < 256; ++i) table[i] = clamp_byte(i + a);
}

// Mode 2's table: T[i] = clamp(trunc(float((i - 128) * (amount + 100)) / 100.0 + 128.5)).
// The integer product is converted to float, then divided and offset in
// double; + 128.5 rounds to nearest (ties up) around the zero chroma 128.
inline void chroma_scale_table(long amount, unsigned char* table) {
    const long long percent = target_long(amount) + 100;
    for (int i = 0; i < 256; ++i) {
        const float product = float((i - 128) * percent);
        table[i] = truncate_clamp_byte(double(product) / 100.0 + 128.5);
    }
}

// HSL saturation through a table, in byte HSL form 1.
inline void shift_hsl_saturation(unsigned char* pixel, const unsigned char* table) {
    unsigned char h, s, l;
    rgb_to_hsl(pixel[2], pixel[1], pixel[0], h, s, l);
    hsl_to_rgb(h, table[s], l, pixel[2], pixel[1], pixel[0]);
}

// U and V through a table.
inline void scale_yuv_chroma(unsigned char* pixel, const unsigned char* table) {
    unsigned char y, u, v;
    rgb_to_yuv(pixel[2], pixel[1], pixel[0], y, u, v);
    yuv_to_rgb(y, table[u], table[v], pixel[2], pixel[1], pixel[0]);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_SATURATION_KERNELS_H
