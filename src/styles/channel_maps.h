// Three byte maps, one per colour channel (blue, green, red in byte order):
// the form every tone step of a look takes (store curves, SFCurve curves,
// colour balance without lightness, brightness and contrast, levels), and
// the form in which consecutive such steps fold into one before the pixels
// are touched.
#ifndef QTZQ_STYLES_CHANNEL_MAPS_H
#define QTZQ_STYLES_CHANNEL_MAPS_H

#include "styles/rgb_curves.h"

namespace qtzq {

struct ChannelMaps {
    static constexpr int kChannels = 3;
    unsigned char map[kChannels][256];  // [0] blue, [1] green, [2] red

    static ChannelMaps identity() {
        ChannelMaps maps;
        for (auto& channel : maps.map)
            for (int v = 0; v < 256; ++v) channel[v] = static_cast<unsigned char>(v);
        return maps;
    }

    // One table for all three channels.
    static ChannelMaps same(const unsigned char* table) {
        ChannelMaps maps;
        for (auto& channel : maps.map)
            for (int v = 0; v < 256; ++v) channel[v] = table[v];
        return maps;
    }

    static ChannelMaps of(const RgbCurves& curves) {
        ChannelMaps maps;
        for (int v = 0; v < 256; ++v) {
            maps.map[0][v] = curves.blue[v];
            maps.map[1][v] = curves.green[v];
            maps.map[2][v] = curves.red[v];
        }
        return maps;
    }

    // These maps, then `after`: one map per channel with the same result.
    ChannelMaps then(const ChannelMaps& after) const {
        ChannelMaps folded;
        for (int c = 0; c < kChannels; ++c)
            for (int v = 0; v < 256; ++v) folded.map[c][v] = after.map[c][map[c][v]];
        return folded;
    }

    // Blue, green and red of one pixel; alpha left alone. All loads come
    // before the stores: a byte store may alias the maps.
    void apply(unsigned char* pixel) const {
        const unsigned char blue = map[0][pixel[0]], green = map[1][pixel[1]], red = map[2][pixel[2]];
        pixel[0] = blue;
        pixel[1] = green;
        pixel[2] = red;
    }
};

}  // namespace qtzq

#endif  // QTZQ_STYLES_CHANNEL_MAPS_H
