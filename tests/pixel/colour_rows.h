// Small byte rows for the pixel tests: one-row images from colour lists and
// copies of single pixels.
#ifndef QTZQ_TESTS_PIXEL_COLOUR_ROWS_H
#define QTZQ_TESTS_PIXEL_COLOUR_ROWS_H

#include <vector>

#include "support/images.h"

namespace qtzq_test {

// One pixel per (b, g, r) triple, in order, each with the given alpha.
inline Bytes colour_row(const std::vector<std::vector<int>>& colours, unsigned char alpha) {
    Bytes image;
    for (const auto& c : colours) {
        image.insert(image.end(), {static_cast<unsigned char>(c[0]),
                                   static_cast<unsigned char>(c[1]),
                                   static_cast<unsigned char>(c[2]), alpha});
    }
    return image;
}

// The `count` bytes from `p` on (one pixel by default).
inline Bytes bytes_at(const unsigned char* p, int count = 4) { return Bytes(p, p + count); }

// A pixel from ints, for comparing with bytes_at.
inline Bytes px(int b, int g, int r, int a) {
    return {static_cast<unsigned char>(b), static_cast<unsigned char>(g),
            static_cast<unsigned char>(r), static_cast<unsigned char>(a)};
}

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_PIXEL_COLOUR_ROWS_H
