// RadiusZoomBlur: a weighted radial blur toward the image centre, all in
// 16.16 fixed point.
#include <cstdint>

#include "blur/zoom_curve.h"
#include "qtzqeffect/blur.h"

namespace {

// Positions are 16.16 fixed point. They are held in 64 bits so that no image
// size overflows; for every size whose positions fit in 32 bits the results
// are those of 32-bit arithmetic.
using Fixed = std::int64_t;
constexpr Fixed kOne = 65536;
constexpr Fixed kHalf = 32768;

constexpr int kTaps = 97;  // the pixel itself and 96 steps toward the centre
constexpr int kPixelBytes = 4;

static_assert((Fixed(-17) >> 4) == -2, "right shifts of negative values must be arithmetic");

// One step toward the centre: the offset shrinks by about 100/16384 of itself.
Fixed shrink(Fixed offset) { return offset - ((100 * (offset >> 4)) >> 10); }

struct Sums {
    int weight = 0, blue = 0, green = 0, red = 0;

    void add(const unsigned char* px, int w) {
        weight += w;
        blue += w * px[0];
        green += w * px[1];
        red += w * px[2];
    }
};

}  // namespace

void RadiusZoomBlur(unsigned char* dst, unsigned char* src, unsigned char* weights, int width,
                    int height) {
    const Fixed cx = width * kHalf, cy = height * kHalf;  // the centre
    const Fixed rx = cx + kHalf, ry = cy + kHalf;         // centre plus the rounding half
    const auto at = [width](Fixed column, Fixed row) {
        return (row * width + column) * kPixelBytes;
    };

    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Fixed self = at(x, y);
            Sums sums;
            sums.add(src + self, weights[self]);
            Fixed dx = x * kOne - cx, dy = y * kOne - cy;
            for (int tap = 1; tap < kTaps; ++tap) {
                dx = shrink(dx);
                dy = shrink(dy);
                // Samples lie between the pixel and the centre: always inside.
                const Fixed sample = at((dx + rx) >> 16, (dy + ry) >> 16);
                sums.add(src + sample, weights[sample]);
            }

            unsigned char* out = dst + self;
            if (sums.weight != 0) {
                out[0] = static_cast<unsigned char>(sums.blue / sums.weight);
                out[1] = static_cast<unsigned char>(sums.green / sums.weight);
                out[2] = static_cast<unsigned char>(sums.red / sums.weight);
                out[3] = static_cast<unsigned char>(sums.weight / kTaps);
            } else {
                out[3] = 0;  // no weight: the colours stay as they were
            }
            for (int c = 0; c < 3; ++c) out[c] = qtzq::kZoomContrastCurve.map[out[c]];
        }
    }
}
