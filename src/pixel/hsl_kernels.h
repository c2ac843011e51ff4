// The two byte HSL spaces.
//
// Form 1 (`rgb_to_hsl` / `hsl_to_rgb`): hue 0..255 for the full circle,
// converted back through float HueToRGB on a 0..360 degree scale.
// Form 2 (`rgb_to_hsl2` / `hsl2_to_rgb`): integer-only on the way in with 42
// hue steps per sixth, mixed double/float on the way back with the hue read
// as 0..255 per circle.
//
// Both forms give grey the hue 170. Their quirks (the + 1 on form 1's
// saturation that wraps 256 to 0, the near-reciprocal constants of form 2,
// the mismatched hue scales of form 2) are part of the results.
#ifndef QTZQ_PIXEL_HSL_KERNELS_H
#define QTZQ_PIXEL_HSL_KERNELS_H

#include "pixel/channel_extremes.h"
#include "pixel/numeric.h"

namespace qtzq {

// Hue that both byte forms give a grey.
constexpr unsigned char kGreyHue = 170;

// What both byte forms derive first: the extremes, the lightness (their
// rounded midpoint), their difference and their sum.
struct ByteHslStart {
    int max_level;
    int min_level;
    int lightness;
    int delta;
    int sum;
};

inline ByteHslStart byte_hsl_start(int r, int g, int b) {
    const ChannelExtremes e = channel_extremes(r, g, b);
    return {e.max, e.min, (e.max + e.min + 1) >> 1, e.max - e.min, e.max + e.min};
}

// Stores the lightness; for a grey also saturation 0 and hue 170, and
// returns true.
inline bool byte_hsl_grey(const ByteHslStart& start, unsigned char& hue,
                          unsigned char& saturation, unsigned char& lightness) {
    lightness = static_cast<unsigned char>(start.lightness);
    if (start.delta != 0) return false;
    saturation = 0;
    hue = kGreyHue;
    return true;
}

// Saturation of a colour (not grey) before form 1 adds its + 1: the
// difference over the sum, or over what is left to 510 from lightness 128.
inline int byte_hsl_saturation(const ByteHslStart& start) {
    const int scaled = 255 * start.delta;
    return start.lightness >= 128 ? scaled / (510 - start.sum) : scaled / start.sum;
}

// ---- Form 1 -----------------------------------------------------------------

// Distance of a channel from the maximum, in 1/6-circle steps of 42.5,
// rounded; single precision.
inline int hsl_hue_distance(int max_level, int level, float delta) {
    return truncate_int(float(max_level - level) * 42.5f / delta + 0.5f);
}

inline void rgb_to_hsl(unsigned char r, unsigned char g, unsigned char b, unsigned char& hue,
                       unsigned char& saturation, unsigned char& lightness) {
    const ByteHslStart start = byte_hsl_start(r, g, b);
    if (byte_hsl_grey(start, hue, saturation, lightness)) return;
    // The + 1 turns 256 into 0 once stored (fully saturated colours); kept.
    saturation = low_byte(byte_hsl_saturation(start) + 1);

    const int max_level = start.max_level;
    const float delta_f = float(start.delta);
    const int dr = hsl_hue_distance(max_level, r, delta_f);
    const int dg = hsl_hue_distance(max_level, g, delta_f);
    const int db = hsl_hue_distance(max_level, b, delta_f);
    if (max_level == r) {
        hue = low_byte(db - dg);  // negative differences wrap
    } else if (max_level == g) {
        hue = truncate_low_byte(float(dr) + 85.0f - float(db));
    } else {
        hue = truncate_low_byte(float(dg) + 170.0f - float(dr));
    }
}

// One channel from the two HSL mixing levels and a hue in degrees
// (single precision); the hue may lie one turn outside 0..360.
inline float hue_to_rgb(float m1, float m2, float hue) {
    if (hue > 360.0f) {
        hue -= 360.0f;
    } else if (hue < 0.0f) {
        hue += 360.0f;
    }
    if (hue < 60.0f) return m1 + (m2 - m1) * hue / 60.0f;
    if (hue < 180.0f) return m2;
    if (hue < 240.0f) return m1 + (m2 - m1) * (240.0f - hue) / 60.0f;
    return m1;
}

inline void hsl_to_rgb(unsigned char hue, unsigned char saturation, unsigned char lightness,
                       unsigned char& r, unsigned char& g, unsigned char& b) {
    const float l = float(lightness) / 255.0f;
    const float s = float(saturation) / 255.0f;
    const float m2 = l <= 0.5f ? l * (1.0f + s) : l + s - l * s;
    if (s == 0.0f) {
        r = g = b = truncate_low_byte(l * 255.0f);
        return;
    }
    const float degrees = float(hue) * 360.0f / 255.0f;
    const float m1 = 2.0f * l - m2;
    r = truncate_low_byte(hue_to_rgb(m1, m2, degrees + 120.0f) * 255.0f);
    g = truncate_low_byte(hue_to_rgb(m1, m2, degrees) * 255.0f);
    b = truncate_low_byte(hue_to_rgb(m1, m2, degrees - 120.0f) * 255.0f);
}

// ---- Form 2 -----------------------------------------------------------------

inline void rgb_to_hsl2(unsigned char r, unsigned char g, unsigned char b, unsigned char& hue,
                        unsigned char& saturation, unsigned char& lightness) {
    const ByteHslStart start = byte_hsl_start(r, g, b);
    if (byte_hsl_grey(start, hue, saturation, lightness)) return;
    saturation = low_byte(byte_hsl_saturation(start));
    const int max_level = start.max_level, delta = start.delta;

    // 42 steps per sixth of the circle; signed division truncates toward
    // zero and the result wraps modulo 256.
    int h;
    if (max_level == r) {
        h = 42 * (g - b) / delta;
    } else if (max_level == g) {
        h = 42 * (b - r) / delta + 85;
    } else {
        h = 42 * (r - g) / delta - 86;
    }
    hue = low_byte(h);
}

// Constants of form 2's way back, required as written: they are close to,
// but not, 1/255, 1/3, 1/6 and 2/3.
constexpr double kHsl2ByteScale = 0.0039215;
constexpr double kHsl2Third = 0.33333;
constexpr double kHsl2Sixth = 0.166666;
constexpr double kHsl2TwoThirds = 0.666666;

// One channel of form 2 from the float mixing levels and a hue 0..1 (double).
inline unsigned char hsl2_channel(float m1, float m2, double t) {
    if (t < kHsl2Sixth) return truncate_low_byte(m1 + (m2 - m1) * t * 6.0);
    if (t < 0.5) return truncate_low_byte(m2);
    if (t < kHsl2TwoThirds) return truncate_low_byte(m1 + (m2 - m1) * (kHsl2TwoThirds - t) * 6.0);
    return truncate_low_byte(m1);
}

inline void hsl2_to_rgb(unsigned char hue, unsigned char saturation, unsigned char lightness,
                        unsigned char& r, unsigned char& g, unsigned char& b) {
    const int s = saturation;
    const int l = lightness;
    if (s == 0) {
        r = g = b = lightness;
        return;
    }
    // Levels on the 0..255 scale, computed in double and kept as floats.
    const float m2 = l >= 128 ? float(double(l + s) - double(s * l) * kHsl2ByteScale)
                              : float(double(l) + double(s) * kHsl2ByteScale * double(l));
    const float m1 = float(2 * l) - m2;

    // The hue is read as 0..255 per circle here, although rgb_to_hsl2 uses
    // 42 steps per sixth; deliberate.
    const double h = double(hue) * kHsl2ByteScale;
    double red_hue = h + kHsl2Third;
    if (red_hue > 1.0) red_hue -= 1.0;
    double blue_hue = h - kHsl2Third;
    if (blue_hue < 0.0) blue_hue += 1.0;

    r = hsl2_channel(m1, m2, red_hue);
    g = hsl2_channel(m1, m2, h);
    b = hsl2_channel(m1, m2, blue_hue);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_HSL_KERNELS_H
