// The zoom blur on AVX2, in strips of columns as zoom_rows.cpp does it, eight
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

    // Packed samples: blue, green, red bytes and the weight in the top byte.
    // Blue and red sit in the low bytes of 16-bit halves, so one multiply-add
    // of 16-bit pairs against (w, 0) or (0, w) gives w * blue or w * red.
    // `first` starts the sums instead of adding to them.
    void add(int at, __m256i samples, bool first) {
        const __m256i blue_red = _mm256_and_si256(samples, _mm256_set1_epi32(0x00FF00FF));
        const __m256i g = _mm256_and_si256(_mm256_srli_epi32(samples, 8), _mm256_set1_epi32(0xFF));
        const __m256i w = _mm256_srli_epi32(samples, 24);
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

// The source columns of taps 1 .. 96 of a strip of columns, tap by tap:
// kStripColumns entries a tap. They depend on the column alone, so they are
// worked out once for the strip and read back for each of its rows.
class StripColumns {
public:
    StripColumns() : table_(new std::int32_t[std::size_t(kZoomTaps - 1) * kStripColumns]) {}
    ~StripColumns() { delete[] table_; }
    StripColumns(const StripColumns&) = delete;
    StripColumns& operator=(const StripColumns&) = delete;

    void fill(int x0, int x1, const ZoomAxis& ax) { zoom_strip_columns(ax, x0, x1, table_); }
    const std::int32_t* of(int tap) const { return table_ + std::size_t(tap - 1) * kStripColumns; }

private:
    std::int32_t* table_;
};

// Output pixels x0 .. x1 - 1 of a row whose tap rows are `rows`: tap by
// tap, each reading a run of one source row from left to right.
void zoom_strip_row(unsigned char* out, const std::uint32_t* packed, const std::int64_t* rows,
                    int x0, int x1, const StripColumns& columns, StripSums& sums) {
    const int n = x1 - x0;
    for (int at = 0; at < n; at += kLanes)
        sums.add(at, _mm256_loadu_si256(reinterpret_cast<const __m256i*>(packed + rows[0] + x0 + at)),
                 true);
    for (int tap = 1; tap < kZoomTaps; ++tap) {
        const std::int32_t* column = columns.of(tap);
        const std::uint32_t* row = packed + rows[tap];
        // The next tap's run, asked of the memory a tap ahead.
        const int next = tap + 1 < kZoomTaps ? tap + 1 : tap;
        const std::int32_t* next_column = columns.of(next);
        const std::uint32_t* next_row = packed + rows[next];
        for (int at = 0; at < n; at += kLanes) {
            const std::int32_t first = column[at];
            _mm_prefetch(reinterpret_cast<const char*>(next_row + next_column[at]), _MM_HINT_T0);
            const __m256i window = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(row + first));
            const __m256i lanes = _mm256_sub_epi32(
                _mm256_loadu_si256(reinterpret_cast<const __m256i*>(column + at)),
                _mm256_set1_epi32(first));
            sums.add(at, _mm256_permutevar8x32_epi32(window, lanes), false);
        }
    }
    for (int at = 0; at < n; ++at)
        write_zoomed_pixel(out + (x0 + at) * kZoomPixelBytes,
                           {sums.weight[at], sums.blue[at], sums.green[at], sums.red[at]});
}

}  // namespace

void zoom_blur_gather(unsigned char* dst, const std::uint32_t* packed, const unsigned char* src,
                      const unsigned char* weights, int width, int height) {
    const ZoomAxis ax(width), ay(height);
    const int lane_columns = width - width % kLanes;
    StripColumns columns;
    StripSums sums;
    std::int64_t rows[kZoomTaps];
    for (int x0 = 0; x0 < lane_columns; x0 += kStripColumns) {
        const int x1 = x0 + kStripColumns < lane_columns ? x0 + kStripColumns : lane_columns;
        columns.fill(x0, x1, ax);
        for (int y = 0; y < height; ++y) {
            unsigned char* out = dst + std::int64_t(y) * width * kZoomPixelBytes;
            zoom_tap_rows(ay, width, y, rows);
            zoom_strip_row(out, packed, rows, x0, x1, columns, sums);
        }
    }
    for (int y = 0; y < height; ++y)  // the last few columns one by one
        for (int x = lane_columns; x < width; ++x)
            write_zoomed_pixel(dst + (std::int64_t(y) * width + x) * kZoomPixelBytes,
                               zoom_pixel_sums(src, weights, width, ax, ay, x, y));
}

}  // namespace avx2
}  // namespace qtzq
