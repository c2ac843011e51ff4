// The blend modes on one pixel, inline for the presets' pixel loops.
//
// Every kernel takes (base pixel, blend pixel, opacity) unless noted: the
// base's B, G, R are changed in place, the blend is only read, and alpha of
// either is never touched. Grouped by how the opacity enters:
//   mixing      - effect cross-faded with the base (blend_common.h);
//   pre-scaled  - the blend (or, once, the base) scaled before the formula;
//   own         - each mode handles the opacity its own way, or ignores it;
//   colour      - effect built in another colour space, then mixed.
#ifndef QTZQ_PIXEL_BLEND_KERNELS_H
#define QTZQ_PIXEL_BLEND_KERNELS_H

#include <algorithm>

#include "pixel/blend_common.h"
#include "pixel/blend_formulas.h"
#include "pixel/hsb_kernels.h"
#include "pixel/hsl_kernels.h"
#include "pixel/numeric.h"

namespace qtzq {

// ---- Mixing modes ----------------------------------------------------------------

// NormalEx and ImageNormalEx: a plain cross-fade.
inline void normal_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    mix_channels(base, blend, opacity, copy_blend);
}

inline void overlay_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    mix_channels(base, blend, opacity, overlay_levels);
}

// Overlay with one constant colour as the blend of bytes 2, 1, 0.
inline void overlay_ex(unsigned char* base, unsigned char red, unsigned char green,
                       unsigned char blue, double opacity) {
    mix_channels(base, blue, green, red, opacity, overlay_levels);
}

inline void soft_light_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    mix_channels(base, blend, opacity, soft_light_levels);
}

// Burn mixed as (1 - op) * a + burn * op; a blend level of 0 only darkens
// the base by the opacity (no burn to 0). Deliberate.
inline void color_burn_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    each_channel(base, blend, [opacity](int a, int b) {
        const double kept = (1.0 - opacity) * double(a);
        if (b == 0) return truncate_low_byte(kept);
        return truncate_low_byte(kept + double(burn_levels(a, b)) * opacity);
    });
}

// ---- Pre-scaled modes ------------------------------------------------------------

inline void image_screen_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    prescaled_channels(base, blend, opacity, screen_by_division);
}

inline void image_lighten_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    prescaled_channels(base, blend, opacity, lighten_levels);
}

inline void image_exclusion_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    prescaled_channels(base, blend, opacity, exclusion_levels);
}

inline void image_soft_light_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    prescaled_channels(base, blend, opacity, soft_light_levels);
}

// One constant blend value for all three channels.
inline void image_soft_light_ex_new(unsigned char* base, unsigned char value, double opacity) {
    prescaled_channels(base, value, value, value, opacity, soft_light_levels);
}

// Exclusion applied twice (deliberate). The opacity is capped at 1 for the
// scaled blend b'; the second pass reuses b' below opacity 1 and the
// unscaled blend at opacity 1 or more.
inline void exclusion_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    const double capped = opacity <= 1.0 ? opacity : 1.0;
    const bool partial = opacity < 1.0;
    each_channel(base, blend, [capped, partial](int a, int b) {
        const int scaled = prescale_level(b, capped);
        const int first = low_byte(exclusion_levels(a, scaled));
        return exclusion_levels(first, partial ? scaled : b);
    });
}

// Soft light of the blend over the base scaled by the opacity: here the
// base, not the blend, is scaled (deliberate). Capped at 255.
inline void composite_color_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    each_channel(base, blend, [opacity](int a, int b) {
        return std::min(soft_light_levels(prescale_level(a, opacity), b), 255);
    });
}

// ---- Modes with their own opacity handling ------------------------------------------

// Multiply through the constant 0.00392156, slightly below 1/255, so that
// 255 x 255 at opacity 1 gives 254. Required as written.
inline void multiple_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    const double kMultiplyScale = 0.00392156;
    each_channel(base, blend, [opacity, kMultiplyScale](int a, int b) {
        const double product = double(a) * (double(b) * opacity) * kMultiplyScale;
        return truncate_low_byte(product + (1.0 - opacity) * double(a));
    });
}

// A multiply despite its name: pre-scaled below opacity 1, exact division
// in double from opacity 1 up.
inline void image_add_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    if (opacity < 1.0) {
        prescaled_channels(base, blend, opacity, multiply_levels);
        return;
    }
    each_channel(base, blend,
                 [](int a, int b) { return truncate_low_byte(double(a * b) / 255.0); });
}

// Screen capped at 255; mixed with the base only below opacity 1.
inline void screen_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    const bool partial = opacity < 1.0;
    each_channel(base, blend, [opacity, partial](int a, int b) {
        const int screen = screen_by_shift(a, b);
        if (!partial) return std::min(screen, 255);
        const double mixed = double(screen) * opacity + (1.0 - opacity) * double(a);
        return int(std::min(truncate_unsigned(mixed), 255u));
    });
}

// The minimum is scaled toward black, not mixed with the base. Deliberate.
inline void image_darken_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    each_channel(base, blend, [opacity](int a, int b) {
        return truncate_low_byte(double(std::min(a, b)) * opacity);
    });
}

// Exclusion with the blend halved; no opacity.
inline void image_exclusion_ex2(unsigned char* base, const unsigned char* blend) {
    each_channel(base, blend, [](int a, int b) { return exclusion_levels(a, b >> 1); });
}

// Colour burn; no opacity.
inline void image_color_burn_ex(unsigned char* base, const unsigned char* blend) {
    each_channel(base, blend, [](int a, int b) { return b == 0 ? 0 : burn_levels(a, b); });
}

// Hard light's dark branch with the opacity applied before the shift:
// trunc(2ab * op) >> 8 (arithmetic shift).
inline int scaled_hard_light_multiply(int a, int b, double opacity) {
    return truncate_int(double(2 * a * b) * opacity) >> 8;
}

// Hard light, tested on the blend level of each channel.
inline void hardlight_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    each_channel(base, blend, [opacity](int a, int b) {
        const double kept = (1.0 - opacity) * double(a);
        if (b > 128) return truncate_low_byte(opacity * double(hard_light_screen(a, b)) + kept);
        return truncate_low_byte(double(scaled_hard_light_multiply(a, b, opacity)) + kept);
    });
}

// Hard light averaged with the base. The light branch ignores the opacity;
// in the dark branch green and red use it and blue does not (deliberate).
inline void hardlight_ex_2(unsigned char* base, const unsigned char* blend, double opacity) {
    const auto light_or = [](int a, int b, int dark) {
        return b > 128 ? (a + hard_light_screen(a, b)) >> 1 : (a + dark) >> 1;
    };
    const int a0 = base[0], a1 = base[1], a2 = base[2];
    const int b0 = blend[0], b1 = blend[1], b2 = blend[2];
    base[0] = low_byte(light_or(a0, b0, (a0 * b0) >> 7));
    base[1] = low_byte(light_or(a1, b1, scaled_hard_light_multiply(a1, b1, opacity)));
    base[2] = low_byte(light_or(a2, b2, scaled_hard_light_multiply(a2, b2, opacity)));
}

// Soft light averaged with the base; no opacity.
inline void soft_light_ex2(unsigned char* base, const unsigned char* blend) {
    each_channel(base, blend, soft_light_half_levels);
}

// Pin light on one channel: with d = 2b, levels below d - 255 and above d
// move to those bounds. Returns false when the level stays as it is.
inline bool pin_light_target(int a, int b, int& target) {
    const int d = 2 * b;
    if (a < d - 255) {
        target = d - 255;  // stored as (d + 1) AND 255, the same byte
        return true;
    }
    if (a > d) {
        target = d;
        return true;
    }
    return false;
}

inline void pin_light_ex(unsigned char* base, const unsigned char* blend) {
    for (int k = 0; k < 3; ++k) {
        int target;
        if (pin_light_target(base[k], blend[k], target)) base[k] = low_byte(target);
    }
}

// Pin light mixed in single precision; unchanged channels are not written.
inline void pin_light_ex_mixed(unsigned char* base, const unsigned char* blend, float opacity) {
    for (int k = 0; k < 3; ++k) {
        int target;
        if (!pin_light_target(base[k], blend[k], target)) continue;
        const float mixed = float(target) * opacity + float(base[k]) * (1.0f - opacity);
        base[k] = truncate_low_byte(mixed);
    }
}

// ---- Colour modes ------------------------------------------------------------------

// Blend hue and saturation with base lightness in byte HSL form 2, mixed.
inline void color_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    unsigned char base_h, base_s, base_l, blend_h, blend_s, blend_l;
    rgb_to_hsl2(base[2], base[1], base[0], base_h, base_s, base_l);
    rgb_to_hsl2(blend[2], blend[1], blend[0], blend_h, blend_s, blend_l);
    unsigned char r, g, b;
    hsl2_to_rgb(blend_h, blend_s, base_l, r, g, b);
    mix_pixel(base, b, g, r, opacity);
}

// Blend hue and saturation with base brightness in HSB, mixed.
inline void color_hsb_ex(unsigned char* base, const unsigned char* blend, double opacity) {
    float base_h, base_s, base_v, blend_h, blend_s, blend_v;
    rgb_to_hsb(base[2], base[1], base[0], base_h, base_s, base_v);
    rgb_to_hsb(blend[2], blend[1], blend[0], blend_h, blend_s, blend_v);
    unsigned char r, g, b;
    hsb_to_rgb(blend_h, blend_s, base_v, r, g, b);
    mix_pixel(base, b, g, r, opacity);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_BLEND_KERNELS_H
