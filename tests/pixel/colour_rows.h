// A one-row test image from a list of (blue, green, red) colours.
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

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_PIXEL_COLOUR_ROWS_H
