#include "pixel/int_hls_tables.h"

#include "pixel/hls_kernels.h"

namespace qtzq {

namespace {

// Saturation depends only on the extremes: take the colour (max, min, min).
void fill_saturation(unsigned char* saturation) {
    for (int max = 0; max < 256; ++max) {
        for (int min = 0; min <= max; ++min) {
            int hue = 0, lightness = 0, level = 0;
            rgb_to_int_hls(max, min, min, hue, lightness, level);
            saturation[max * 256 + min] = static_cast<unsigned char>(level);
        }
    }
}

// For (red, green, blue) = (delta, delta - from_max, 0) red is largest
// and blue smallest, so the hue is 42 - the green step (never negative).
void fill_hue_step(unsigned char* hue_step) {
    for (int delta = 1; delta < 256; ++delta) {
        for (int from_max = 0; from_max <= delta; ++from_max) {
            int hue = 0, lightness = 0, saturation = 0;
            rgb_to_int_hls(delta, delta - from_max, 0, hue, lightness, saturation);
            hue_step[delta * 256 + from_max] = static_cast<unsigned char>(42 - hue);
        }
    }
}

IntHlsTables* build_tables() {
    static IntHlsTables tables = {};
    fill_saturation(tables.saturation);
    fill_hue_step(tables.hue_step);
    return &tables;
}

}  // namespace

const IntHlsTables& int_hls_tables() {
    static const IntHlsTables* const tables = build_tables();
    return *tables;
}

}  // namespace qtzq
