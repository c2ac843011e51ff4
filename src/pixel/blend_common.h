// The two opacity schemes of the blend modes and the per-channel loops
// built on them.
//
// Mix: a mode computes an effect level from the base level a and the blend
// level b of a channel; the stored value is
//     trunc(effect * op + (1 - op) * a)     (double)
// converted to unsigned (negative gives 0) and kept as its low 8 bits.
// Pre-scale: the blend level is scaled first, b' = trunc(b * op) converted to
// unsigned and kept as its low 8 bits; the mode's integer formula then works
// on (a, b') and its result keeps its low 8 bits, with no later mixing.
//
// Channels are independent: each uses only its own base and blend bytes.
#ifndef QTZQ_PIXEL_BLEND_COMMON_H
#define QTZQ_PIXEL_BLEND_COMMON_H

#include "pixel/numeric.h"

namespace qtzq {

inline unsigned char mix_level(int effect, int base, double opacity) {
    return truncate_low_byte(double(effect) * opacity + (1.0 - opacity) * double(base));
}

inline int prescale_level(int level, double opacity) {
    return truncate_low_byte(double(level) * opacity);
}

// Stores mix_level of the given effect levels (blue, green, red).
inline void mix_pixel(unsigned char* base, int blue_effect, int green_effect, int red_effect,
                      double opacity) {
    base[0] = mix_level(blue_effect, base[0], opacity);
    base[1] = mix_level(green_effect, base[1], opacity);
    base[2] = mix_level(red_effect, base[2], opacity);
}

// Mixing mode with per-channel effect(a, b); the blend given as levels.
template <typename Effect>
inline void mix_channels(unsigned char* base, int blue, int green, int red, double opacity,
                         Effect effect) {
    mix_pixel(base, effect(base[0], blue), effect(base[1], green), effect(base[2], red), opacity);
}

template <typename Effect>
inline void mix_channels(unsigned char* base, const unsigned char* blend, double opacity,
                         Effect effect) {
    mix_channels(base, blend[0], blend[1], blend[2], opacity, effect);
}

// Any per-channel rule(a, b) on B, G, R; its result keeps its low 8 bits.
template <typename Rule>
inline void each_channel(unsigned char* base, int blue, int green, int red, Rule rule) {
    base[0] = low_byte(rule(base[0], blue));
    base[1] = low_byte(rule(base[1], green));
    base[2] = low_byte(rule(base[2], red));
}

template <typename Rule>
inline void each_channel(unsigned char* base, const unsigned char* blend, Rule rule) {
    each_channel(base, blend[0], blend[1], blend[2], rule);
}

// Pre-scaled mode: formula(a, b') with b' = prescale_level(b, opacity).
template <typename Formula>
inline void prescaled_channels(unsigned char* base, int blue, int green, int red, double opacity,
                               Formula formula) {
    each_channel(base, prescale_level(blue, opacity), prescale_level(green, opacity),
                 prescale_level(red, opacity), formula);
}

template <typename Formula>
inline void prescaled_channels(unsigned char* base, const unsigned char* blend, double opacity,
                               Formula formula) {
    prescaled_channels(base, blend[0], blend[1], blend[2], opacity, formula);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_BLEND_COMMON_H
