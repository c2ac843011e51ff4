// Monotone piecewise-cubic interpolation of a sampled 256-entry tone curve.
//
// The curve passes exactly through every sample, and between two samples it
// never leaves the range they span, so a curve whose samples never fall
// never falls (Fritsch-Carlson slopes, as in the common "PCHIP" scheme).
// Values are rounded half up and kept in 0..255.
#ifndef QTZQ_TABLEGEN_MONOTONE_CUBIC_H
#define QTZQ_TABLEGEN_MONOTONE_CUBIC_H

#include <array>
#include <vector>

namespace tablegen {

struct Sample {
    int x;     // index 0..255, strictly increasing from sample to sample
    double y;  // value at that index
};

// A full 256-entry curve through the samples; indices before the first or
// after the last sample repeat the nearest sample's value.
std::array<unsigned char, 256> interpolate_curve(const std::vector<Sample>& samples);

}  // namespace tablegen

#endif  // QTZQ_TABLEGEN_MONOTONE_CUBIC_H
