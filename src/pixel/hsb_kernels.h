// HSB (hue, saturation, brightness) in single precision.
//
// Hue is in degrees with 0 reserved for grey: chromatic hues lie in
// (0, 360], so pure red has hue 360, and hsb_to_rgb treats hue 0 as grey
// whatever the saturation. Saturation and brightness are 0..1.
#ifndef QTZQ_PIXEL_HSB_KERNELS_H
#define QTZQ_PIXEL_HSB_KERNELS_H

#include "pixel/channel_extremes.h"
#include "pixel/numeric.h"

namespace qtzq {

// Levels are clamped to 0..255.
inline void rgb_to_hsb(int r, int g, int b, float& hue, float& saturation, float& brightness) {
    clamp_levels(r, g, b);
    const ChannelExtremes extremes = channel_extremes(r, g, b);
    const int max_level = extremes.max, min_level = extremes.min;
    brightness = float(max_level) / 255.0f;
    if (max_level == min_level) {
        saturation = 0.0f;
        hue = 0.0f;
        return;
    }
    const float delta = float(max_level - min_level);
    saturation = delta / float(max_level);
    const float rd = float(max_level - r) / delta;
    const float gd = float(max_level - g) / delta;
    const float bd = float(max_level - b) / delta;
    // The tests run one after another: a later match overrides an earlier one.
    float h = 0.0f;
    if (max_level == r) h = (6.0f + bd - gd) * 60.0f;
    if (max_level == g) h = (2.0f + rd - bd) * 60.0f;
    if (max_level == b) h = (4.0f + gd - rd) * 60.0f;
    // Only values strictly above 360 come down a turn: red stays at 360.
    if (h > 360.0f) h -= 360.0f;
    hue = h;
}

// Brightness outside 0..1 is clamped to 0..255 as a level; channels clamp.
inline void hsb_to_rgb(float hue, float saturation, float brightness, unsigned char& r,
                       unsigned char& g, unsigned char& b) {
    const unsigned char top = clamp_byte(truncate_int(brightness * 255.0f));
    if (hue == 0.0f) {
        r = g = b = top;
        return;
    }
    const float v = float(top);
    const std::int32_t m = truncate_int(v - v * saturation);
    const unsigned char bottom = clamp_byte(m);
    const float delta = float(top - static_cast<long long>(m));
    const float mf = float(m);
    if (hue > 300.0f) {
        r = top;
        g = bottom;
        // This sextant alone divides in double.
        b = truncate_clamp_byte(double((360.0f - hue) * delta) / 60.0 + double(m));
    } else if (hue > 240.0f) {
        b = top;
        g = bottom;
        r = truncate_clamp_byte((hue - 240.0f) * delta / 60.0f + mf);
    } else if (hue > 180.0f) {
        b = top;
        r = bottom;
        g = truncate_clamp_byte((240.0f - hue) * delta / 60.0f + mf);
    } else if (hue > 120.0f) {
        g = top;
        r = bottom;
        b = truncate_clamp_byte((hue - 120.0f) * delta / 60.0f + mf);
    } else if (hue > 60.0f) {
        g = top;
        b = bottom;
        r = truncate_clamp_byte((120.0f - hue) * delta / 60.0f + mf);
    } else {
        r = top;
        b = bottom;
        g = truncate_clamp_byte(hue * delta / 60.0f + mf);
    }
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_HSB_KERNELS_H
