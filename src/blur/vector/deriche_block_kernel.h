// Body of the block kernel declared in deriche_block.h. Each including file
// defines QTZQ_KERNEL_SET (the namespace, named after the instruction set its
// compile flags select) and includes this header once.
//
// Exactness rules: the vector paths must give the bytes of the scalar
// reference (DericheLineFilter::run) on every compiler and CPU.
// - Each lane performs the same IEEE operations, in the same order and the
//   same type, as the scalar code does for one channel of one pixel: per tap
//   t1 = n[i] * x, t2 = d[i] * y, t3 = t1 - t2, acc = acc + t3, taps taken
//   in order from acc = +0.0; the edge factors (n[i] - bn[i]) are computed
//   in scalar double and then multiplied by the edge pixel.
// - No fused multiply-add: the build passes -ffp-contract=off, kernel files
//   are never given -mfma or a -march that implies it (-mavx2 alone does
//   not), and no helper that may fuse is called.
// - No reassociated sums, no reciprocals, no wider or narrower type: double
//   stays double, float stays float, integers stay integers.
// - Lanes run across the channels of one pixel or across neighbouring lines,
//   never along a line, so each channel keeps its own operation sequence.
//   The fourth lane of a pixel is filtered too but never read from or
//   written to the image: a pixel may be three bytes, so its fourth byte
//   belongs to the next pixel or lies past the buffer.
// - Converting an input byte to double is exact, so it is done once per
//   pixel rather than at every tap.
// - Everything here has internal linkage apart from the entry point, so no
//   code compiled for a wider instruction set can stand in for a function
//   of the same name used elsewhere.
#include <cstddef>

#include "blur/deriche_line_filter.h"
#include "blur/vector/deriche_block.h"

namespace qtzq {
namespace QTZQ_KERNEL_SET {
namespace {

typedef double v4d __attribute__((vector_size(32)));

constexpr int kOrder = kDericheTaps - 1;

// The coefficients of one direction, spread over the lanes.
struct Taps {
    v4d numerator[kDericheTaps];
    v4d denominator[kDericheTaps];
    v4d edge[kDericheTaps];  // numerator - edge coefficient, in scalar double
};

v4d splat(double v) { return v4d{v, v, v, v}; }

Taps spread(const double* numerator, const double* denominator, const double* edge) {
    Taps taps;
    for (int i = 0; i < kDericheTaps; ++i) {
        taps.numerator[i] = splat(numerator[i]);
        taps.denominator[i] = splat(denominator[i]);
        taps.edge[i] = splat(numerator[i] - edge[i]);
    }
    return taps;
}

// Values are stored position by position, the block's lines side by side:
// element position * Lines + line.
template <int Lines>
void load_pixels(const DericheLines& lines, v4d* x) {
    for (int p = 0; p < lines.length; ++p)
        for (int l = 0; l < Lines; ++l) {
            const unsigned char* px = lines.in + l * lines.in_line_step + p * lines.in_step;
            x[std::ptrdiff_t(p) * Lines + l] = v4d{double(px[0]), double(px[1]), double(px[2]), 0.0};
        }
}

template <int Lines>
void store_pixels(const DericheLines& lines, const v4d* y, const v4d* z) {
    for (int p = 0; p < lines.length; ++p)
        for (int l = 0; l < Lines; ++l) {
            const std::ptrdiff_t at = std::ptrdiff_t(p) * Lines + l;
            const v4d sum = y[at] + z[at];
            unsigned char* px = lines.out + l * lines.out_line_step + p * lines.out_step;
            px[0] = filtered_to_byte(sum[0]);
            px[1] = filtered_to_byte(sum[1]);
            px[2] = filtered_to_byte(sum[2]);
        }
}

// One output position of one direction for every line of the block. `at`
// is the position's first element; `toward` steps one position back along
// the filter's direction. The value at the position itself still counts as
// 0.0 in the i = 0 tap, as in the scalar code's zero-filled work array.
template <int Lines>
__attribute__((always_inline)) inline void filter_position(const v4d* x, v4d* w, std::ptrdiff_t at,
                                                           std::ptrdiff_t toward, int taps,
                                                           const Taps& k, const v4d* edge_pixel) {
    const v4d zero = splat(0.0);
    for (int l = 0; l < Lines; ++l) {
        v4d acc = zero;
        acc = acc + (k.numerator[0] * x[at + l] - k.denominator[0] * zero);
        for (int i = 1; i <= taps; ++i) {
            const std::ptrdiff_t back = at + i * toward + l;
            acc = acc + (k.numerator[i] * x[back] - k.denominator[i] * w[back]);
        }
        for (int i = taps + 1; i <= kOrder; ++i) acc = acc + k.edge[i] * edge_pixel[l];
        w[at + l] = acc;
    }
}

template <int Lines>
void filter_block(const DericheLines& lines, const DericheCoefficients& k, double* work) {
    const int length = lines.length;
    const std::ptrdiff_t count = std::ptrdiff_t(length) * Lines;
    v4d* const x = reinterpret_cast<v4d*>(work);
    v4d* const y = x + count;
    v4d* const z = y + count;
    load_pixels<Lines>(lines, x);

    v4d first[Lines], last[Lines];
    for (int l = 0; l < Lines; ++l) {
        first[l] = x[l];
        last[l] = x[count - Lines + l];
    }
    const Taps causal = spread(k.n, k.d, k.bn);
    const Taps anticausal = spread(k.m, k.dAnti, k.bm);

    int step = 0;
    for (; step < length && step < kOrder; ++step) {
        filter_position<Lines>(x, y, std::ptrdiff_t(step) * Lines, -Lines, step, causal, first);
        filter_position<Lines>(x, z, std::ptrdiff_t(length - 1 - step) * Lines, Lines, step,
                               anticausal, last);
    }
    for (; step < length; ++step) {
        filter_position<Lines>(x, y, std::ptrdiff_t(step) * Lines, -Lines, kOrder, causal, first);
        filter_position<Lines>(x, z, std::ptrdiff_t(length - 1 - step) * Lines, Lines, kOrder,
                               anticausal, last);
    }
    store_pixels<Lines>(lines, y, z);
}

}  // namespace

void filter_deriche_block(const DericheLines& lines, const DericheCoefficients& k, double* work) {
    switch (lines.count) {
        case 1: filter_block<1>(lines, k, work); break;
        case 2: filter_block<2>(lines, k, work); break;
        case 3: filter_block<3>(lines, k, work); break;
        default: filter_block<4>(lines, k, work); break;
    }
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
