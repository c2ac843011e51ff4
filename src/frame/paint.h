// Source-over painting of one image onto another, clipped pixel by pixel.
//
// The public draw and drawRect use these, and so does frame compositing,
// whose positions come from file values and may lie far outside the int
// range; hence 64-bit positions and regions here.
#ifndef QTZQ_FRAME_PAINT_H
#define QTZQ_FRAME_PAINT_H

#include <cstdint>

namespace qtzq {

// Paints one BGRA source pixel over a target pixel: alpha 255 copies the
// colour, alpha 0 changes nothing, any other alpha a blends each colour
// byte as (source * a + target * (255 - a)) >> 8. The shift (not a division
// by 255) is part of the result. A painted pixel becomes opaque.
inline void paint_pixel(unsigned char* target, const unsigned char* source) {
    constexpr unsigned kOpaque = 255;
    const unsigned alpha = source[3];
    if (alpha == 0) return;
    for (int c = 0; c < 3; ++c) {
        target[c] = alpha == kOpaque
                        ? source[c]
                        : static_cast<unsigned char>(
                              (source[c] * alpha + target[c] * (kOpaque - alpha)) >> 8);
    }
    target[3] = static_cast<unsigned char>(kOpaque);
}

// A region of a source image: columns left .. right - 1, rows top .. bottom - 1.
struct PaintRegion {
    std::int64_t left;
    std::int64_t top;
    std::int64_t right;
    std::int64_t bottom;
};

// A BGRA image that is painted onto; width * height * 4 bytes.
struct PaintTarget {
    unsigned char* pixels;
    int width;
    int height;
};

// A BGRA image that is painted from.
struct PaintSource {
    const unsigned char* pixels;
    int width;
    int height;
};

// Paints `region` of the source with its top-left corner at (x, y) of the
// target. Only pixels inside both the source and the target are visited.
// Null pixels or a side below 1 paint nothing.
void paint_region(const PaintTarget& target, const PaintSource& source, std::int64_t x,
                  std::int64_t y, const PaintRegion& region);

// Paints the whole source with its top-left corner at (x, y) of the target.
void paint_image(const PaintTarget& target, const PaintSource& source, std::int64_t x,
                 std::int64_t y);

}  // namespace qtzq

#endif  // QTZQ_FRAME_PAINT_H
