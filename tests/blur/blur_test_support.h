// Helpers shared by the blur tests.
#ifndef QTZQ_TESTS_BLUR_SUPPORT_H
#define QTZQ_TESTS_BLUR_SUPPORT_H

#include <cstddef>

#include "support/images.h"

namespace qtzq_test {

// The image mirrored about its main diagonal (width and height swap).
inline Bytes transposed(const Bytes& image, int width, int height) {
    Bytes out(image.size());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < 4; ++c)
                out[(std::size_t(x) * height + y) * 4 + c] = image[(std::size_t(y) * width + x) * 4 + c];
    return out;
}

// True when every alpha byte of `after` equals that of `before`.
inline bool alpha_unchanged(const Bytes& before, const Bytes& after) {
    if (before.size() != after.size()) return false;
    for (std::size_t i = 3; i < before.size(); i += 4)
        if (before[i] != after[i]) return false;
    return true;
}

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_BLUR_SUPPORT_H
