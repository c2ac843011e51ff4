// Giving a recoloured pixel back the lightness it had before, in the
// integer or the double-precision HLS space.
#ifndef QTZQ_PIXEL_LIGHTNESS_KEEP_H
#define QTZQ_PIXEL_LIGHTNESS_KEEP_H

#include <cstdint>

#include "pixel/channel_extremes.h"
#include "pixel/hls_kernels.h"
#include "pixel/numeric.h"

namespace qtzq {

// The colour of a pixel before a change: red, green, blue.
struct IncomingColour {
    int r;
    int g;
    int b;
};

// Integer HLS: hue and saturation of the pixel as it is now, lightness
// trunc((max + min) * 255 * 0.0019647) of the incoming colour.
inline void keep_int_hls_lightness(unsigned char* pixel, const IncomingColour& before) {
    int hue = 0, lightness = 0, saturation = 0;
    rgb_to_int_hls(pixel[2], pixel[1], pixel[0], hue, lightness, saturation);
    const ChannelExtremes extremes = channel_extremes(before.r, before.g, before.b);
    lightness = truncate_int(double((extremes.max + extremes.min) * 255) * kHlsLightnessScale);
    int r = 0, g = 0, b = 0;
    int_hls_to_rgb(hue, lightness, saturation, r, g, b);
    pixel[0] = clamp_byte(b);
    pixel[1] = clamp_byte(g);
    pixel[2] = clamp_byte(r);
}

// Double HLS: hue and saturation of the pixel as it is now, lightness
// (max + min) * 0.0019647 of the incoming colour; the packed result is
// unpacked as blue in bits 0-7, green 8-15, red 16-23.
inline void keep_double_hls_lightness(unsigned char* pixel, const IncomingColour& before) {
    double hue = 0.0, lightness = 0.0, saturation = 0.0;
    rgb_to_hls(pixel[2], pixel[1], pixel[0], hue, lightness, saturation);
    lightness = hls_lightness(before.r, before.g, before.b);
    const std::uint32_t packed = hls_to_rgb(hue, lightness, saturation);
    pixel[0] = low_byte(packed);
    pixel[1] = low_byte(packed >> 8);
    pixel[2] = low_byte(packed >> 16);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_LIGHTNESS_KEEP_H
