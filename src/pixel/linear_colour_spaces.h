// Linear colour spaces with byte components: YUV, YIQ and XYZ.
//
// Arithmetic is single precision throughout (except where XYZ -> RGB widens
// on purpose), sums are formed left to right in the order written, and
// float-to-integer conversions truncate toward zero. The constants are
// required exactly as written: they fix the bytes these conversions give.
#ifndef QTZQ_PIXEL_LINEAR_COLOUR_SPACES_H
#define QTZQ_PIXEL_LINEAR_COLOUR_SPACES_H

#include "pixel/numeric.h"

namespace qtzq {

// Y = G*0.587 + R*0.299 + B*0.114; U and V are offsets of B and R from the
// unclamped integer luma, 128 meaning no chroma.
inline void rgb_to_yuv(unsigned char r, unsigned char g, unsigned char b, unsigned char& y,
                       unsigned char& u, unsigned char& v) {
    const float luma = float(g) * 0.587f + float(r) * 0.299f + float(b) * 0.114f;
    const std::int32_t luma_int = truncate_int(luma);  // U and V use it unclamped
    y = clamp_byte(luma_int);
    u = truncate_clamp_byte(128.0f + float(b - luma_int) * 0.565f);
    v = truncate_clamp_byte(128.0f + float(r - luma_int) * 0.713f);
}

inline void yuv_to_rgb(unsigned char y, unsigned char u, unsigned char v, unsigned char& r,
                       unsigned char& g, unsigned char& b) {
    const float uf = float(u - 128);
    const float vf = float(v - 128);
    const float yf = float(y);
    r = truncate_clamp_byte(yf + vf * 1.403f);
    g = truncate_clamp_byte(yf + uf * -0.344f + vf * -0.714f);
    b = truncate_clamp_byte(yf + uf * 1.77f);
}

inline void rgb_to_yiq(unsigned char r, unsigned char g, unsigned char b, unsigned char& y,
                       unsigned char& i, unsigned char& q) {
    const float rf = float(r), gf = float(g), bf = float(b);
    y = truncate_clamp_byte(gf * 0.5868f + rf * 0.2992f + bf * 0.114f);
    i = truncate_clamp_byte(gf * -0.2742f + rf * 0.596f + bf * -0.3219f + 128.0f);
    q = truncate_clamp_byte(gf * -0.5229f + rf * 0.2109f + bf * 0.312f + 128.0f);
}

inline void yiq_to_rgb(unsigned char y, unsigned char i, unsigned char q, unsigned char& r,
                       unsigned char& g, unsigned char& b) {
    const float if_ = float(i - 128);
    const float qf = float(q - 128);
    const float yf = float(y);
    r = truncate_clamp_byte(yf + if_ * 0.956f + qf * 0.621f);
    g = truncate_clamp_byte(yf + if_ * -0.273f + qf * -0.647f);
    b = truncate_clamp_byte(yf + if_ * -1.104f + qf * 1.701f);
}

// XYZ in bytes, Z pre-scaled by the white point; not clamped: the integer
// keeps its low 8 bits (it never exceeds 255 for byte inputs).
inline void rgb_to_xyz(unsigned char r, unsigned char g, unsigned char b, unsigned char& x,
                       unsigned char& y, unsigned char& z) {
    const float rf = float(r), gf = float(g), bf = float(b);
    const float kZWhite = 0.9184837f;
    x = low_byte(truncate_int(gf * 0.35758f + rf * 0.412453f + bf * 0.180423f));
    y = low_byte(truncate_int(gf * 0.71516f + rf * 0.212671f + bf * 0.072169f));
    z = low_byte(truncate_int((gf * 0.119193f + rf * 0.019334f + bf * 0.950227f) * kZWhite));
}

// One RGB channel from XYZ: the Y and X terms summed in single precision,
// the Z term formed in single precision, then both widened and the Z term
// undone from its white-point scale in double.
inline unsigned char xyz_channel(float x, float y, float z, float ky, float kx, float kz) {
    const double kZWhiteInverse = 1.088751;
    const float xy_terms = y * ky + x * kx;
    const float z_term = z * kz;
    return truncate_clamp_byte(double(xy_terms) + double(z_term) * kZWhiteInverse);
}

inline void xyz_to_rgb(unsigned char x, unsigned char y, unsigned char z, unsigned char& r,
                       unsigned char& g, unsigned char& b) {
    const float xf = float(x), yf = float(y), zf = float(z);
    r = xyz_channel(xf, yf, zf, -1.53715f, 3.240479f, -0.498535f);
    g = xyz_channel(xf, yf, zf, 1.875992f, -0.969256f, 0.041556f);
    b = xyz_channel(xf, yf, zf, -0.204043f, 0.055648f, 1.057311f);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_LINEAR_COLOUR_SPACES_H
