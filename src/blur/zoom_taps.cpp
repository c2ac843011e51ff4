// The zoom blur's shared pieces (zoom_taps.h), out of line so that the AVX2
// file can call them.
#include "blur/zoom_taps.h"

#include <vector>

#include "blur/zoom_curve.h"

namespace qtzq {
namespace {

static_assert((std::int64_t(-17) >> 4) == -2, "right shifts of negative values must be arithmetic");

// One step toward the centre: the offset shrinks by about 100/16384 of itself.
std::int64_t zoom_shrink(std::int64_t offset) { return offset - ((100 * (offset >> 4)) >> 10); }

}  // namespace

ZoomAxis::ZoomAxis(int size) : centre(std::int64_t(size) * kZoomHalf), rounding(centre + kZoomHalf) {}

std::int64_t ZoomAxis::offset(int at) const { return std::int64_t(at) * kZoomOne - centre; }

void write_zoomed_pixel(unsigned char* out, const ZoomSums& sums) {
    if (sums.weight != 0) {
        out[0] = static_cast<unsigned char>(sums.blue / sums.weight);
        out[1] = static_cast<unsigned char>(sums.green / sums.weight);
        out[2] = static_cast<unsigned char>(sums.red / sums.weight);
        out[3] = static_cast<unsigned char>(sums.weight / kZoomTaps);
    } else {
        out[3] = 0;
    }
    for (int c = 0; c < 3; ++c) out[c] = kZoomContrastCurve.map[out[c]];
}

void write_zoomed_pixels(unsigned char* out, int count, const std::int32_t* weight,
                         const std::int32_t* blue, const std::int32_t* green,
                         const std::int32_t* red) {
    for (int i = 0; i < count; ++i)
        write_zoomed_pixel(out + i * kZoomPixelBytes, {weight[i], blue[i], green[i], red[i]});
}

ZoomSums zoom_pixel_sums(const unsigned char* src, const unsigned char* weights, int width,
                         const ZoomAxis& ax, const ZoomAxis& ay, int x, int y) {
    const auto at = [width](std::int64_t column, std::int64_t row) {
        return (row * width + column) * kZoomPixelBytes;
    };
    ZoomSums sums;
    const auto add = [&](std::int64_t sample) {
        const std::int32_t w = weights[sample];
        sums.weight += w;
        sums.blue += w * src[sample];
        sums.green += w * src[sample + 1];
        sums.red += w * src[sample + 2];
    };
    add(at(x, y));
    std::int64_t dx = ax.offset(x), dy = ay.offset(y);
    for (int tap = 1; tap < kZoomTaps; ++tap) {
        dx = zoom_shrink(dx);
        dy = zoom_shrink(dy);
        // Samples lie between the pixel and the centre: always inside.
        add(at((dx + ax.rounding) >> 16, (dy + ay.rounding) >> 16));
    }
    return sums;
}

void zoom_tap_rows(const ZoomAxis& ay, int width, int y, std::int64_t* rows) {
    std::int64_t dy = ay.offset(y);
    rows[0] = std::int64_t(y) * width;
    for (int tap = 1; tap < kZoomTaps; ++tap) {
        dy = zoom_shrink(dy);
        rows[tap] = ((dy + ay.rounding) >> 16) * width;
    }
}

void zoom_strip_columns(const ZoomAxis& ax, int x0, int x1, std::int32_t* table) {
    for (int x = x0; x < x1; ++x) {
        std::int64_t dx = ax.offset(x);
        for (int tap = 1; tap < kZoomTaps; ++tap) {
            dx = zoom_shrink(dx);
            table[std::size_t(tap - 1) * kZoomStripColumns + (x - x0)] =
                std::int32_t((dx + ax.rounding) >> 16);
        }
    }
}

void zoom_in_strips(unsigned char* dst, const unsigned char* src, const unsigned char* weights,
                    int width, int height, int columns, ZoomStripRowKernel kernel) {
    const ZoomAxis ax(width), ay(height);
    std::vector<std::int32_t> table(std::size_t(kZoomTaps - 1) * kZoomStripColumns);
    std::int64_t rows[kZoomTaps];
    for (int x0 = 0; x0 < columns; x0 += kZoomStripColumns) {
        const int x1 = x0 + kZoomStripColumns < columns ? x0 + kZoomStripColumns : columns;
        zoom_strip_columns(ax, x0, x1, table.data());
        for (int y = 0; y < height; ++y) {
            zoom_tap_rows(ay, width, y, rows);
            kernel({dst + std::int64_t(y) * width * kZoomPixelBytes, src, weights, width, rows,
                    table.data(), x0, x1});
        }
    }
}

}  // namespace qtzq
