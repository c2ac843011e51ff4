// The zoom blur on AVX2, in strips of columns as zoom_strips.cpp does it, eight
// neighbouring output pixels at a time. The eight samples of a tap come from
// one source row and, as shrinking never widens the gap between two offsets
// nor reverses their order, from the eight columns starting at the first
// lane's: one load of those eight pixels and a permutation fetch them. Every
// sum is the integer sum the reference forms, in another order.
#include <immintrin.h>

#include <cstdint>

#include "blur/zoom_taps.h"

namespace qtzq {
namespace avx2 {
namespace {

constexpr int kLanes = 8;
constexpr int kStripColumns = kZoomStripColumns;
static_assert(kStripColumns % kLanes == 0, "strips hold whole lane groups");

// The sums of a strip's pixels in one row, eight lanes at a time.
struct StripSums {
    alignas(32) std::int32_t weight[kStripColumns], blue[kStripColumns], green[kStripColumns],
        red[kStripColumns];

    // Eight sample pixels and their weight pixels. Blue and red sit in the
    // low bytes of 16-bit halves, so one multiply-add of 16-bit pairs against
    // (w, 0) or (0, w) gives w * blue or w * red. `first` starts the sums
    // instead of adding to them.
    void add(int at, __m256i colours, __m256i weight_pixels, bool first) {
        const __m256i low_byte = _mm256_set1_epi32(0xFF);
        const __m256i blue_red = _mm256_and_si256(colours, _mm256_set1_epi32(0x00FF00FF));
        const __m256i g = _mm256_and_si256(_mm256_srli_epi32(colours, 8), low_byte);
        const __m256i w = _mm256_and_si256(weight_pixels, low_byte);
        const __m256i w_high = _mm256_slli_epi32(w, 16);
        accumulate(weight + at, w, first);
        accumulate(blue + at, _mm256_madd_epi16(blue_red, w), first);
        accumulate(red + at, _mm256_madd_epi16(blue_red, w_high), first);
        accumulate(green + at, _mm256_madd_epi16(g, w), first);
    }

    static void accumulate(std::int32_t* sums, __m256i terms, bool first) {
        __m256i* at = reinterpret_cast<__m256i*>(sums);
        _mm256_store_si256(at, first ? terms : _mm256_add_epi32(_mm256_load_si256(at), terms));
    }
};

__m256i load_pixels(const unsigned char* image, std::int64_t pixel) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(image + pixel * kZoomPixelBytes));
}

void prefetch_pixel(const unsigned char* image, std::int64_t pixel) {
    _mm_prefetch(reinterpret_cast<const char*>(image + pixel * kZoomPixelBytes), _MM_HINT_T0);
}

// Output pixels x0 .. x1 - 1 of a row whose tap rows are `rows`: tap by
// tap, each reading a run of one source row from left to right. The eight
// pixels loaded for a lane group start at its first column, or further left
// at the end of a row, so that no load passes the row's last pixel.
void zoom_strip_row(const ZoomStripRow& row) {
    const int n = row.x1 - row.x0;
    const std::int32_t last_start = row.width - kLanes;
    StripSums sums;
    for (int at = 0; at < n; at += kLanes) {
        const std::int64_t self = row.rows[0] + row.x0 + at;
        sums.add(at, load_pixels(row.src, self), load_pixels(row.weights, self), true);
    }
    for (int tap = 1; tap < kZoomTaps; ++tap) {
        const std::int32_t* column = row.columns + std::size_t(tap - 1) * kStripColumns;
        // The next tap's runs, asked of the memory a tap ahead.
        const int next = tap + 1 < kZoomTaps ? tap + 1 : tap;
        const std::int32_t* next_column = row.columns + std::size_t(next - 1) * kStripColumns;
        for (int at = 0; at < n; at += kLanes) {
            prefetch_pixel(row.src, row.rows[next] + next_column[at]);
            prefetch_pixel(row.weights, row.rows[next] + next_column[at]);
            const std::int32_t start = column[at] < last_start ? column[at] : last_start;
            const __m256i lanes = _mm256_sub_epi32(
                _mm256_loadu_si256(reinterpret_cast<const __m256i*>(column + at)),
                _mm256_set1_epi32(start));
            const std::int64_t from = row.rows[tap] + start;
            sums.add(at, _mm256_permutevar8x32_epi32(load_pixels(row.src, from), lanes),
                     _mm256_permutevar8x32_epi32(load_pixels(row.weights, from), lanes), false);
        }
    }
    write_zoomed_pixels(row.out + row.x0 * kZoomPixelBytes, n, sums.weight, sums.blue, sums.green,
                        sums.red);
}

}  // namespace

// Whole lane groups in strips; the last few columns one pixel at a time.
void zoom_blur_strips(unsigned char* dst, const unsigned char* src, const unsigned char* weights,
                      int width, int height) {
    const int lane_columns = width - width % kLanes;
    zoom_in_strips(dst, src, weights, width, height, lane_columns, zoom_strip_row);
    const ZoomAxis ax(width), ay(height);
    for (int y = 0; y < height; ++y)
        for (int x = lane_columns; x < width; ++x)
            write_zoomed_pixel(dst + (std::int64_t(y) * width + x) * kZoomPixelBytes,
                               zoom_pixel_sums(src, weights, width, ax, ay, x, y));
}

}  // namespace avx2
}  // namespace qtzq
