// The radial zoom blur's pieces shared by its reference loop and its fast
// paths: 16.16 fixed-point positions, the shrink toward the centre, the
// weighted sums of one pixel's taps and how they become the output pixel.
//
// All of the blur's arithmetic is integer, so the sums of a pixel may be
// formed in any order: every path gives the same bytes. Sums never overflow
// (weights <= 255 * 97, colour sums <= 255 * 255 * 97).
#ifndef QTZQ_BLUR_ZOOM_TAPS_H
#define QTZQ_BLUR_ZOOM_TAPS_H

#include <cstdint>

namespace qtzq {

constexpr int kZoomTaps = 97;  // the pixel itself and 96 steps toward the centre
constexpr int kZoomPixelBytes = 4;
constexpr std::int32_t kZoomOne = 65536;
constexpr std::int32_t kZoomHalf = 32768;

// The centre, and the centre plus the rounding half, along one axis.
struct ZoomAxis {
    std::int64_t centre, rounding;
    explicit ZoomAxis(int size);
    std::int64_t offset(int at) const;  // of pixel `at` from the centre
};

struct ZoomSums {
    std::int32_t weight = 0, blue = 0, green = 0, red = 0;
};

// The mean colour of the taps into `out` (left as it was when no tap has
// weight), the mean weight into its alpha, then the colours through the
// contrast curve.
void write_zoomed_pixel(unsigned char* out, const ZoomSums& sums);

// write_zoomed_pixel for `count` pixels from `out` on, their sums in four
// arrays.
void write_zoomed_pixels(unsigned char* out, int count, const std::int32_t* weight,
                         const std::int32_t* blue, const std::int32_t* green,
                         const std::int32_t* red);

// Every tap of pixel (x, y), one after the other. Positions are held in
// 64 bits so that no image size overflows; for every size whose positions
// fit in 32 bits the results are those of 32-bit arithmetic.
ZoomSums zoom_pixel_sums(const unsigned char* src, const unsigned char* weights, int width,
                         const ZoomAxis& ax, const ZoomAxis& ay, int x, int y);

// Source rows of the taps of output row y, as indices of their first pixel:
// kZoomTaps entries.
void zoom_tap_rows(const ZoomAxis& ay, int width, int y, std::int64_t* rows);

// The fast paths work in strips of columns. The source columns of a tap
// depend on the output column alone, so they are worked out once a strip:
// table[(tap - 1) * kZoomStripColumns + x - x0] is the column tap 1 .. 96 of
// output column x (x0 <= x < x1, x1 - x0 <= kZoomStripColumns) samples.
constexpr int kZoomStripColumns = 256;
void zoom_strip_columns(const ZoomAxis& ax, int x0, int x1, std::int32_t* table);

// One output row of one strip: pixels x0 .. x1 - 1 of the row whose tap
// rows are `rows` (zoom_tap_rows), with the strip's column table.
struct ZoomStripRow {
    unsigned char* out;  // the output row
    const unsigned char* src;
    const unsigned char* weights;
    int width;
    const std::int64_t* rows;
    const std::int32_t* columns;
    int x0, x1;
};
using ZoomStripRowKernel = void (*)(const ZoomStripRow& row);

// Runs `kernel` over output columns 0 .. columns - 1, strip by strip, each
// strip top to bottom.
void zoom_in_strips(unsigned char* dst, const unsigned char* src, const unsigned char* weights,
                    int width, int height, int columns, ZoomStripRowKernel kernel);

// The fast paths: the same bytes as the reference loop, with no scratch
// image. The strip path is plain C++ for every CPU; the AVX2 one takes eight
// samples at once. The AVX2 file calls only the functions above, all defined
// out of line in zoom_taps.cpp, and shares no inline or template code with
// other files, so no code compiled for AVX2 can stand in for a function the
// other paths run.
void zoom_blur_strips(unsigned char* dst, const unsigned char* src, const unsigned char* weights,
                      int width, int height);
namespace avx2 {
void zoom_blur_strips(unsigned char* dst, const unsigned char* src, const unsigned char* weights,
                      int width, int height);
}

}  // namespace qtzq

#endif  // QTZQ_BLUR_ZOOM_TAPS_H
