// The library's single-pixel blend modes, by name, for building blend
// table sets. Only modes that treat blue, green and red alike (each channel
// from its own two bytes) can become a 256 x 256 map, so the HSL/HSB colour
// modes and the channel-asymmetric half hard light are not offered.
#ifndef QTZQ_CLI_BLEND_MODES_H
#define QTZQ_CLI_BLEND_MODES_H

#include <string>
#include <vector>

namespace qtzq_cli {

struct BlendMode {
    const char* name;      // the tool's short name, e.g. "screen"
    const char* function;  // the library function, e.g. "ScreenEx"
    const char* description;
    bool uses_opacity;
    // Blends one blend pixel into one base pixel (4 bytes each) in place.
    void (*apply)(unsigned char* base, unsigned char* blend, double opacity);
};

const std::vector<BlendMode>& blend_modes();

// By short name or library function name, case-insensitive; null when
// unknown.
const BlendMode* find_blend_mode(const std::string& name);

}  // namespace qtzq_cli

#endif  // QTZQ_CLI_BLEND_MODES_H
