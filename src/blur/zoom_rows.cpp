// The zoom blur in strips of columns, in plain C++ for every CPU. For output
// row y the rows its taps sample depend on y alone and the columns on x
// alone, so the taps run in the outer loop: each adds the samples of one
// source row, read from left to right, to the sums of the strip's pixels.
#include <cstdint>
#include <vector>

#include "blur/zoom_taps.h"

namespace qtzq {
namespace {

struct StripSums {
    std::int32_t weight[kZoomStripColumns], blue[kZoomStripColumns], green[kZoomStripColumns],
        red[kZoomStripColumns];

    void set(int at, std::uint32_t sample) {
        weight[at] = blue[at] = green[at] = red[at] = 0;
        add(at, sample);
    }
    void add(int at, std::uint32_t sample) {
        const std::int32_t w = std::int32_t(sample >> 24);
        weight[at] += w;
        blue[at] += w * std::int32_t(sample & 0xFF);
        green[at] += w * std::int32_t((sample >> 8) & 0xFF);
        red[at] += w * std::int32_t((sample >> 16) & 0xFF);
    }
};

// Output pixels x0 .. x1 - 1 of a row whose tap rows are `rows`.
void zoom_strip_row(unsigned char* out, const std::uint32_t* packed, const std::int64_t* rows,
                    int x0, int x1, const std::int32_t* columns, StripSums& sums) {
    const int n = x1 - x0;
    const std::uint32_t* self = packed + rows[0] + x0;
    for (int at = 0; at < n; ++at) sums.set(at, self[at]);
    for (int tap = 1; tap < kZoomTaps; ++tap) {
        const std::int32_t* column = columns + std::size_t(tap - 1) * kZoomStripColumns;
        const std::uint32_t* row = packed + rows[tap];
        for (int at = 0; at < n; ++at) sums.add(at, row[column[at]]);
    }
    for (int at = 0; at < n; ++at)
        write_zoomed_pixel(out + (x0 + at) * kZoomPixelBytes,
                           {sums.weight[at], sums.blue[at], sums.green[at], sums.red[at]});
}

}  // namespace

void zoom_blur_rows(unsigned char* dst, const std::uint32_t* packed, int width, int height) {
    const ZoomAxis ax(width), ay(height);
    std::vector<std::int32_t> columns(std::size_t(kZoomTaps - 1) * kZoomStripColumns);
    StripSums sums;
    std::int64_t rows[kZoomTaps];
    for (int x0 = 0; x0 < width; x0 += kZoomStripColumns) {
        const int x1 = x0 + kZoomStripColumns < width ? x0 + kZoomStripColumns : width;
        zoom_strip_columns(ax, x0, x1, columns.data());
        for (int y = 0; y < height; ++y) {
            zoom_tap_rows(ay, width, y, rows);
            zoom_strip_row(dst + std::int64_t(y) * width * kZoomPixelBytes, packed, rows, x0, x1,
                           columns.data(), sums);
        }
    }
}

}  // namespace qtzq
