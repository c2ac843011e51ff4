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
#include <vector>

namespace qtzq {

constexpr int kZoomTaps = 97;  // the pixel itself and 96 steps toward the centre
constexpr int kZoomPixelBytes = 4;
constexpr std::int32_t kZoomOne = 65536;
constexpr std::int32_t kZoomHalf = 32768;

static_assert((std::int32_t(-17) >> 4) == -2, "right shifts of negative values must be arithmetic");

// One step toward the centre: the offset shrinks by about 100/16384 of itself.
// (The AVX2 file has its own, on vectors.)
template <typename Fixed>
inline Fixed zoom_shrink(Fixed offset) {
    return offset - ((100 * (offset >> 4)) >> 10);
}

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

// Every tap of pixel (x, y), one after the other. Positions are held in
// 64 bits so that no image size overflows; for every size whose positions
// fit in 32 bits the results are those of 32-bit arithmetic.
ZoomSums zoom_pixel_sums(const unsigned char* src, const unsigned char* weights, int width,
                         const ZoomAxis& ax, const ZoomAxis& ay, int x, int y);

// Source rows of the taps of output row y, as offsets of their first pixel
// in the packed source: kZoomTaps entries.
void zoom_tap_rows(const ZoomAxis& ay, int width, int y, std::int64_t* rows);

// The fast paths work in strips of columns. The source columns of a tap
// depend on the output column alone, so they are worked out once a strip:
// table[(tap - 1) * kZoomStripColumns + x - x0] is the column tap 1 .. 96 of
// output column x (x0 <= x < x1, x1 - x0 <= kZoomStripColumns) samples.
constexpr int kZoomStripColumns = 256;
void zoom_strip_columns(const ZoomAxis& ax, int x0, int x1, std::int32_t* table);

// The source pixel's blue, green and red with its weight in the fourth
// byte (byte 0 of the weights pixel), one 32-bit word a pixel: a fast path
// reads a sample with one load. kZoomPackedPadding zero words follow the
// last pixel, so that eight words may be loaded from any pixel on.
constexpr int kZoomPackedPadding = 7;
std::vector<std::uint32_t> pack_zoom_source(const unsigned char* src, const unsigned char* weights,
                                            int width, int height);

// The fast paths: the same bytes as the reference loop, from the packed
// source. The strip path is plain C++ for every CPU; the AVX2 one takes eight
// samples at once.
// The AVX2 file calls only functions defined out of line here (and no
// inline or template code shared with other files), so no code compiled for
// AVX2 can stand in for a function the other paths run.
void zoom_blur_rows(unsigned char* dst, const std::uint32_t* packed, int width, int height);
namespace avx2 {
void zoom_blur_gather(unsigned char* dst, const std::uint32_t* packed, const unsigned char* src,
                      const unsigned char* weights, int width, int height);
}

}  // namespace qtzq

#endif  // QTZQ_BLUR_ZOOM_TAPS_H
