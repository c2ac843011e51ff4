// The library's single-pixel blend modes, by name, for building blend
// table sets and for blending whole images. Only modes that treat blue,
// green and red alike (each channel from its own two bytes) can become a
// 256 x 256 map; the HSL/HSB colour modes and the channel-asymmetric half
// hard light are listed apart.
#ifndef QTZQ_APP_BLEND_MODES_H
#define QTZQ_APP_BLEND_MODES_H

#include <string>
#include <vector>

namespace qtzq_app {

struct BlendMode {
    const char* name;      // the short name the applications take, e.g. "screen"
    const char* function;  // the library function, e.g. "ScreenEx"
    const char* description;
    bool uses_opacity;
    // Blends one blend pixel into one base pixel (4 bytes each) in place.
    void (*apply)(unsigned char* base, unsigned char* blend, double opacity);
};

// The modes that can become blend maps (each channel from its own bytes).
const std::vector<BlendMode>& blend_modes();

// The modes that mix the channels (HSL/HSB colour, the channel-asymmetric
// half hard light): no blend maps, but whole images blend well with them.
const std::vector<BlendMode>& channel_mixing_modes();

// blend_modes() then channel_mixing_modes().
std::vector<const BlendMode*> all_blend_modes();

// Any mode of all_blend_modes() by short name or library function name,
// case-insensitive; null when unknown.
const BlendMode* find_any_blend_mode(const std::string& name);

// A blend-map mode by short name or library function name, case-insensitive;
// null when unknown.
const BlendMode* find_blend_mode(const std::string& name);

}  // namespace qtzq_app

#endif  // QTZQ_APP_BLEND_MODES_H
