// The largest and smallest of three channel levels, which every hue-based
// colour space starts from.
#ifndef QTZQ_PIXEL_CHANNEL_EXTREMES_H
#define QTZQ_PIXEL_CHANNEL_EXTREMES_H

#include <algorithm>

#include "pixel/numeric.h"

namespace qtzq {

struct ChannelExtremes {
    int max;
    int min;
};

inline ChannelExtremes channel_extremes(int r, int g, int b) {
    return {std::max({r, g, b}), std::min({r, g, b})};
}

// Limits three integer levels to 0..255 in place.
inline void clamp_levels(int& r, int& g, int& b) {
    r = clamp_byte(r);
    g = clamp_byte(g);
    b = clamp_byte(b);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_CHANNEL_EXTREMES_H
