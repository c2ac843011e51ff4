// Small BGRA buffers for tests.
#ifndef QTZQ_TESTS_SUPPORT_IMAGES_H
#define QTZQ_TESTS_SUPPORT_IMAGES_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qtzq_test {

using Bytes = std::vector<unsigned char>;

// width x height pixels, every one (b, g, r, a).
inline Bytes solid(int width, int height, unsigned char b, unsigned char g, unsigned char r,
                   unsigned char a = 255) {
    Bytes image(std::size_t(width) * height * 4);
    for (std::size_t i = 0; i < image.size(); i += 4) {
        image[i] = b;
        image[i + 1] = g;
        image[i + 2] = r;
        image[i + 3] = a;
    }
    return image;
}

// Deterministic pseudo-random bytes (all four channels), the same on every
// platform.
inline Bytes noise(int width, int height, std::uint32_t seed = 1) {
    Bytes image(std::size_t(width) * height * 4);
    std::uint32_t state = seed;
    for (auto& byte : image) {
        state = state * 1664525u + 1013904223u;
        byte = static_cast<unsigned char>(state >> 24);
    }
    return image;
}

// One pixel holding every value 0..255 in each colour channel: a 256 x 1
// image whose pixel i is (i, i, i, alpha).
inline Bytes grey_ramp(unsigned char alpha = 255) {
    Bytes image(256 * 4);
    for (int i = 0; i < 256; ++i) {
        image[4 * i] = image[4 * i + 1] = image[4 * i + 2] = static_cast<unsigned char>(i);
        image[4 * i + 3] = alpha;
    }
    return image;
}

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_SUPPORT_IMAGES_H
