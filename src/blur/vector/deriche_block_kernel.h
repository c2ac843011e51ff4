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
//   Here they run across the block's four lines, one vector per channel, so
//   no lane is spent on a fourth byte (a pixel may be three bytes: its
//   fourth byte belongs to the next pixel or lies past the buffer, and is
//   never read).
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

// One vector holds one channel of the block's lines, a lane per line:
// element position * kChannels + channel. Lanes of lines the block does not
// have (a last, partial block) are filtered as zeros and never stored.
constexpr int kChannels = 3;  // blue, green, red; alpha is never filtered
constexpr int kLines = 4;     // lines of a whole block, a lane each

typedef int v4i __attribute__((vector_size(16)));

// Bytes to doubles, four lines at once (exact). The geometry is copied
// into locals: byte stores may alias anything in memory, so read through
// `lines` it would be read again after every store. kCount is the block's
// line count when known at compile time (a whole block), else 0.
template <int kCount>
void load_pixels(const DericheLines& lines, v4d* x) {
    const unsigned char* const in = lines.in;
    const std::ptrdiff_t step = lines.in_step, line_step = lines.in_line_step;
    const int length = lines.length, count = kCount != 0 ? kCount : lines.count;
    for (int p = 0; p < length; ++p)
        for (int c = 0; c < kChannels; ++c) {
            const unsigned char* const at = in + p * step + c;
            v4i levels = {0, 0, 0, 0};
            for (int l = 0; l < count; ++l) levels[l] = at[l * line_step];
            x[std::ptrdiff_t(p) * kChannels + c] = __builtin_convertvector(levels, v4d);
        }
}

// filtered_to_byte on four lanes: 0 for NaN and anything not above 0, 255
// from 255 up, else truncated. The clamped values lie in 0..255, where the
// vector conversion truncates exactly as the scalar cast does.
v4i filtered_to_bytes(v4d v) {
    const v4d capped = v < 255.0 ? v : splat(255.0);
    const v4d kept = v > 0.0 ? capped : splat(0.0);
    return __builtin_convertvector(kept, v4i);
}

template <int kCount>
void store_pixels(const DericheLines& lines, const v4d* y, const v4d* z) {
    unsigned char* const out = lines.out;
    const std::ptrdiff_t step = lines.out_step, line_step = lines.out_line_step;
    const int length = lines.length, count = kCount != 0 ? kCount : lines.count;
    for (int p = 0; p < length; ++p)
        for (int c = 0; c < kChannels; ++c) {
            const std::ptrdiff_t at = std::ptrdiff_t(p) * kChannels + c;
            const v4i levels = filtered_to_bytes(y[at] + z[at]);
            unsigned char* const to = out + p * step + c;
            for (int l = 0; l < count; ++l) to[l * line_step] = static_cast<unsigned char>(levels[l]);
        }
}

// One output position of one direction for every channel of the block's
// lines. `at` is the position's first element; `toward` steps one position
// back along the filter's direction. The value at the position itself still
// counts as 0.0 in the i = 0 tap, as in the scalar code's zero-filled work
// array.
__attribute__((always_inline)) inline void filter_position(const v4d* x, v4d* w, std::ptrdiff_t at,
                                                           std::ptrdiff_t toward, int taps,
                                                           const Taps& k, const v4d* edge_pixel) {
    const v4d zero = splat(0.0);
    for (int c = 0; c < kChannels; ++c) {
        v4d acc = zero;
        acc = acc + (k.numerator[0] * x[at + c] - k.denominator[0] * zero);
        for (int i = 1; i <= taps; ++i) {
            const std::ptrdiff_t back = at + i * toward + c;
            acc = acc + (k.numerator[i] * x[back] - k.denominator[i] * w[back]);
        }
        for (int i = taps + 1; i <= kOrder; ++i) acc = acc + k.edge[i] * edge_pixel[c];
        w[at + c] = acc;
    }
}

void filter_block(const DericheLines& lines, const DericheCoefficients& k, double* work) {
    const int length = lines.length;
    const std::ptrdiff_t count = std::ptrdiff_t(length) * kChannels;
    v4d* const x = reinterpret_cast<v4d*>(work);
    v4d* const y = x + count;
    v4d* const z = y + count;
    if (lines.count == kLines)
        load_pixels<kLines>(lines, x);
    else
        load_pixels<0>(lines, x);

    v4d first[kChannels], last[kChannels];
    for (int c = 0; c < kChannels; ++c) {
        first[c] = x[c];
        last[c] = x[count - kChannels + c];
    }
    const Taps causal = spread(k.n, k.d, k.bn);
    const Taps anticausal = spread(k.m, k.dAnti, k.bm);

    int step = 0;
    for (; step < length && step < kOrder; ++step) {
        filter_position(x, y, std::ptrdiff_t(step) * kChannels, -kChannels, step, causal, first);
        filter_position(x, z, std::ptrdiff_t(length - 1 - step) * kChannels, kChannels, step,
                        anticausal, last);
    }
    for (; step < length; ++step) {
        filter_position(x, y, std::ptrdiff_t(step) * kChannels, -kChannels, kOrder, causal, first);
        filter_position(x, z, std::ptrdiff_t(length - 1 - step) * kChannels, kChannels, kOrder,
                        anticausal, last);
    }
    if (lines.count == kLines)
        store_pixels<kLines>(lines, y, z);
    else
        store_pixels<0>(lines, y, z);
}

}  // namespace

void filter_deriche_block(const DericheLines& lines, const DericheCoefficients& k, double* work) {
    filter_block(lines, k, work);
}

}  // namespace QTZQ_KERNEL_SET
}  // namespace qtzq
