// The parts of the integer RGB-to-HLS conversion that need a variable
// divisor, as tables over the small integers they depend on. Each entry is
// written by rgb_to_int_hls itself, so the tables are exact by construction.
#ifndef QTZQ_PIXEL_INT_HLS_TABLES_H
#define QTZQ_PIXEL_INT_HLS_TABLES_H

namespace qtzq {

constexpr int kIntHlsTableSize = 256 * 256;

struct IntHlsTables {
    // [max * 256 + min] (min <= max): the saturation of any colour with
    // these extremes; 0 for max = min.
    unsigned char saturation[kIntHlsTableSize + 4];
    // [delta * 256 + (max - level)] (level between min and max, delta = max
    // - min): the hue step (42 * (max - level) + delta / 2) / delta, 0 for
    // the largest channel and 42 for the smallest. Entry 0 (grey) is 0.
    unsigned char hue_step[kIntHlsTableSize + 4];
    // The 4 bytes past the end let a vector unit load 4 bytes at any entry.
};

// Built on first use, then shared (read-only, safe from any thread).
const IntHlsTables& int_hls_tables();

}  // namespace qtzq

#endif  // QTZQ_PIXEL_INT_HLS_TABLES_H
