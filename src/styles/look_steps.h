// Span steps shared by several looks: the whole-image primitives run on a
// strip at a time.
#ifndef QTZQ_STYLES_LOOK_STEPS_H
#define QTZQ_STYLES_LOOK_STEPS_H

#include "qtzqeffect/pixel.h"
#include "styles/look.h"

namespace qtzq {

// Saturateconst(amount, mode) on a strip.
inline SpanStep saturation_step(long amount, long mode) {
    return [amount, mode](unsigned char* pixels, const unsigned char* const*, std::size_t count) {
        Saturateconst(pixels, static_cast<int>(count), 1, amount, mode);
    };
}

// The matrix form, Saturateconst(amount), on a strip.
inline SpanStep saturation_matrix_step(long amount) {
    return [amount](unsigned char* pixels, const unsigned char* const*, std::size_t count) {
        Saturateconst(pixels, static_cast<int>(count), 1, amount);
    };
}

}  // namespace qtzq

#endif  // QTZQ_STYLES_LOOK_STEPS_H
