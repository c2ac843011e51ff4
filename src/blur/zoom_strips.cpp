// The zoom blur in strips of columns, in plain C++ for every CPU. For output
// row y the rows its taps sample depend on y alone and the columns on x
// alone, so the taps run in the outer loop: each adds the samples of one
// source row, read from left to right, to the sums of the strip's pixels.
#include <cstddef>
#include <cstdint>

#include "blur/zoom_taps.h"

namespace qtzq {
namespace {

struct StripSums {
    std::int32_t weight[kZoomStripColumns], blue[kZoomStripColumns], green[kZoomStripColumns],
        red[kZoomStripColumns];

    void set(int at, const unsigned char* px, std::int32_t w) {
        weight[at] = blue[at] = green[at] = red[at] = 0;
        add(at, px, w);
    }
    void add(int at, const unsigned char* px, std::int32_t w) {
        weight[at] += w;
        blue[at] += w * px[0];
        green[at] += w * px[1];
        red[at] += w * px[2];
    }
};

void zoom_strip_row(const ZoomStripRow& row) {
    const int n = row.x1 - row.x0;
    StripSums sums;
    for (int at = 0; at < n; ++at) {
        const std::int64_t self = (row.rows[0] + row.x0 + at) * kZoomPixelBytes;
        sums.set(at, row.src + self, row.weights[self]);
    }
    for (int tap = 1; tap < kZoomTaps; ++tap) {
        const std::int32_t* column = row.columns + std::size_t(tap - 1) * kZoomStripColumns;
        const unsigned char* src_row = row.src + row.rows[tap] * kZoomPixelBytes;
        const unsigned char* weight_row = row.weights + row.rows[tap] * kZoomPixelBytes;
        for (int at = 0; at < n; ++at) {
            const std::int64_t sample = std::int64_t(column[at]) * kZoomPixelBytes;
            sums.add(at, src_row + sample, weight_row[sample]);
        }
    }
    write_zoomed_pixels(row.out + row.x0 * kZoomPixelBytes, n, sums.weight, sums.blue, sums.green,
                        sums.red);
}

}  // namespace

void zoom_blur_strips(unsigned char* dst, const unsigned char* src, const unsigned char* weights,
                      int width, int height) {
    zoom_in_strips(dst, src, weights, width, height, width, zoom_strip_row);
}

}  // namespace qtzq
