// HLS in double precision (hue, lightness and saturation 0..1) and in
// signed integers (all three 0..255), as colour balance uses them.
//
// The scale factors 0.0019647, 0.00392156 and 0.166994 are required as
// written: they are close to, but not, 1/510, 1/255 and 1/6.
#ifndef QTZQ_PIXEL_HLS_KERNELS_H
#define QTZQ_PIXEL_HLS_KERNELS_H

#include <cstdint>

#include "pixel/channel_extremes.h"
#include "pixel/numeric.h"

namespace qtzq {

constexpr double kHlsLightnessScale = 0.0019647;  // (max + min) to 0..1
constexpr double kHlsLevelScale = 0.00392156;     // a level to 0..1
constexpr double kHlsHueSixth = 0.166994;         // sixths of a circle to 0..1
// Saturations below single-precision epsilon count as grey.
constexpr double kHlsGreySaturation = 1.1920928955078125e-07;

// ---- Double precision ---------------------------------------------------------

inline double hls_lightness(int r, int g, int b) {
    const ChannelExtremes extremes = channel_extremes(r, g, b);
    return double(extremes.max + extremes.min) * kHlsLightnessScale;
}

inline void rgb_to_hls(unsigned char r, unsigned char g, unsigned char b, double& hue,
                       double& lightness, double& saturation) {
    const ChannelExtremes extremes = channel_extremes(r, g, b);
    const int max_level = extremes.max, min_level = extremes.min;
    lightness = hls_lightness(r, g, b);
    if (max_level == min_level) {
        hue = 0.0;
        saturation = 0.0;
        return;
    }
    const double rs = r * kHlsLevelScale, gs = g * kHlsLevelScale, bs = b * kHlsLevelScale;
    const double mx = max_level * kHlsLevelScale, mn = min_level * kHlsLevelScale;
    const double delta = mx - mn;
    saturation = lightness < 0.5 ? delta / (mx + mn) : delta / (2.0 - mx - mn);
    double h;
    if (max_level == r) {
        h = (gs - bs) / delta;
    } else if (max_level == g) {
        h = (bs - rs) / delta + 2.0;
    } else {
        h = (rs - gs) / delta + 4.0;
    }
    h *= kHlsHueSixth;
    if (h < 0.0) h += 1.0;
    hue = h;
}

// One level 0..1 from the two mixing levels and a hue in sixths (0..6,
// one turn outside is folded back).
inline double hls_value(double m1, double m2, double hue) {
    if (hue > 6.0) {
        hue -= 6.0;
    } else if (hue < 0.0) {
        hue += 6.0;
    }
    if (hue < 1.0) return m1 + (m2 - m1) * hue;
    if (hue < 3.0) return m2;
    if (hue < 4.0) return m1 + (m2 - m1) * (4.0 - hue);
    return m1;
}

// Packs B, G, R and an opaque alpha into the value whose little-endian bytes
// are a BGRA pixel.
inline std::uint32_t pack_bgra(unsigned char r, unsigned char g, unsigned char b) {
    return std::uint32_t(b) | (std::uint32_t(g) << 8) | (std::uint32_t(r) << 16) |
           (std::uint32_t(255) << 24);
}

inline std::uint32_t hls_to_rgb(double hue, double lightness, double saturation) {
    if (saturation < kHlsGreySaturation) {
        const unsigned char grey = truncate_clamp_byte(lightness * 255.0);
        return pack_bgra(grey, grey, grey);
    }
    const double m2 = lightness < 0.5 ? lightness + saturation * lightness
                                      : lightness + saturation - lightness * saturation;
    const double m1 = 2.0 * lightness - m2;
    const double h = hue * 6.0;
    return pack_bgra(truncate_clamp_byte(hls_value(m1, m2, h + 2.0) * 255.0),
                     truncate_clamp_byte(hls_value(m1, m2, h) * 255.0),
                     truncate_clamp_byte(hls_value(m1, m2, h - 2.0) * 255.0));
}

// ---- Integers ----------------------------------------------------------------
// Hue 0..255 for a full circle with 85 per third and 42 per sixth; the
// circle wraps at 255, not 256 (deliberate). rgb_to_int_hls limits its levels
// to 0..255 (a sum of 0 would otherwise divide by zero). The way back takes
// any int and computes as written, in 64 bits where a product needs it; a
// value that does not fit in 32 bits goes on as its low 32 bits
// (two's complement), as a 32-bit machine would carry it.

constexpr int kIntHueThird = 85;
constexpr int kIntGreyHue = 170;

inline void rgb_to_int_hls(int r, int g, int b, int& hue, int& lightness, int& saturation) {
    clamp_levels(r, g, b);
    const ChannelExtremes extremes = channel_extremes(r, g, b);
    const int max_level = extremes.max, min_level = extremes.min;
    const int sum = max_level + min_level;
    lightness = truncate_int(double(sum * 255) * kHlsLightnessScale);
    if (max_level == min_level) {
        saturation = 0;
        hue = kIntGreyHue;
        return;
    }
    const int delta = max_level - min_level;
    // Rounded integer divisions.
    if (lightness < 128) {
        saturation = (255 * delta + (sum >> 1)) / sum;
    } else {
        const int rest = 510 - sum;
        saturation = (255 * delta + (rest >> 1)) / rest;
    }
    const int half = delta >> 1;
    const int rd = (42 * (max_level - r) + half) / delta;
    const int gd = (42 * (max_level - g) + half) / delta;
    const int bd = (42 * (max_level - b) + half) / delta;
    int h;
    if (max_level == r) {
        h = bd - gd;
    } else if (max_level == g) {
        h = rd + kIntHueThird - bd;
    } else {
        h = gd + kIntGreyHue - rd;
    }
    if (h < 0) {
        h += 255;
    } else if (h > 255) {
        h -= 255;
    }
    hue = h;
}

// m1 + ((m2 - m1) * t + 21) * 2 / 85, signed divisions truncating toward
// zero. |m2 - m1| < 2^32 and |t| < 2^31 keep the product inside 64 bits; the
// doubling is taken apart (2x / 85 = 2 (x / 85) + 2 (x % 85) / 85, both
// parts of one sign) so that it cannot overflow either.
inline int int_hue_ramp(long long m1, long long m2, long long t) {
    const long long scaled = (m2 - m1) * t + 21;
    return low_int32(2 * (scaled / 85) + 2 * (scaled % 85) / 85 + m1);
}

inline int int_hue_to_rgb(int m1, int m2, int hue) {
    if (hue < 0) {
        hue += 255;
    } else if (hue >= 256) {
        hue -= 255;
    }
    if (double(hue) < 42.5) return int_hue_ramp(m1, m2, hue);
    if (hue < 127) return m2;
    if (hue > 169) return m1;
    return int_hue_ramp(m1, m2, 170 - hue);
}

// A level from int_hue_to_rgb scaled back with rounding and range limits.
inline int int_hls_channel(int m1, int m2, int hue) {
    const long long scaled = 255LL * int_hue_to_rgb(m1, m2, hue);
    if (scaled < 128) return 0;
    if (scaled >= 65153) return 255;
    return static_cast<int>((scaled + 127) / 255);
}

inline void int_hls_to_rgb(int hue, int lightness, int saturation, int& r, int& g, int& b) {
    if (saturation == 0) {
        r = g = b = lightness;
        return;
    }
    const long long l = lightness, s = saturation;
    const long long m2 = l < 128 ? (l * (255 + s) + 127) / 255 : l + s - (l * s + 127) / 255;
    const int m1 = low_int32(2 * l - m2), m2_low = low_int32(m2);
    r = int_hls_channel(m1, m2_low, low_int32(hue + (long long)kIntHueThird));
    g = int_hls_channel(m1, m2_low, hue);
    b = int_hls_channel(m1, m2_low, low_int32(hue - (long long)kIntHueThird));
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_HLS_KERNELS_H
