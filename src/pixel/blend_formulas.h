// Per-channel integer formulas of the blend modes, a = base level and
// b = blend level (both 0..255, or a scaled level).
//
// Divisions by 255 truncate and shifts by 7 or 8 stay shifts (not /127.5
// or /255): both are part of the results. Several modes share a formula.
#ifndef QTZQ_PIXEL_BLEND_FORMULAS_H
#define QTZQ_PIXEL_BLEND_FORMULAS_H

#include <algorithm>

namespace qtzq {

inline int copy_blend(int, int b) { return b; }

// Multiply through a truncating division by 255.
inline int multiply_levels(int a, int b) { return a * b / 255; }

// Screen with a shift: can reach 256 (255, 255), callers cap it.
inline int screen_by_shift(int a, int b) { return a + b - ((a * b) >> 8); }

// Screen with a truncating division by 255.
inline int screen_by_division(int a, int b) { return b + a - a * b / 255; }

inline int lighten_levels(int a, int b) { return std::max(a, b); }

inline int exclusion_levels(int a, int b) { return b + a - ((a * b) >> 7); }

// Colour burn for a non-zero blend level.
inline int burn_levels(int a, int b) {
    const int q = (255 * a - 65025) / b;  // signed, truncating toward zero
    if (q < -255) return 0;
    if (q < 0) return 255 + q;
    return 255;
}

// Overlay, tested on the base level.
inline int overlay_levels(int a, int b) {
    if (a > 127) {
        const int x = 2 * (255 - a) * (255 - b);
        if (x >= 65280) return 0;
        if (x <= 254) return 255;
        return 255 - x / 255;
    }
    const int y = 2 * a * b;
    return y < 65025 ? y / 255 : 255;
}

// Soft light: the base interpolates between multiply m and screen s.
inline int soft_light_levels(int a, int b) {
    const int m = (a * b) >> 8;
    const int s = 255 - (((255 - a) * (255 - b)) >> 8);
    return m + ((a * (s - m)) >> 8);
}

// SoftLightEx2's variant: the screen term squares (255 - b) instead of
// using (255 - a)(255 - b), and the result is averaged with the base.
// Deliberate.
inline int soft_light_half_levels(int a, int b) {
    const int m = (a * b) >> 8;
    const int s = 255 - (((255 - b) * (255 - b)) >> 8);
    return (m + a + ((a * (s - m)) >> 8)) >> 1;
}

// Hard light's branch for blend levels above 128 (a screen).
inline int hard_light_screen(int a, int b) {
    return std::min(255 - ((2 * (255 - a) * (255 - b)) >> 8), 255);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_BLEND_FORMULAS_H
