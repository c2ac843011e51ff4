// CSharp's separable integer blur.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "blur/csharp_pass.h"
#include "blur/csharp_size.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/blur.h"
#include "simd/vector_unit.h"

namespace {

constexpr int kColourChannels = 3;

// One channel of one line. Samples are s[t * step], t = 0 .. length-1; the
// kernel is used from index 0 with its centre at `half`.
struct LineConvolution {
    const int* kernel;
    int kernel_sum;
    int half;

    int sample(const unsigned char* s, std::ptrdiff_t step, int t) const { return s[t * step]; }

    // Left edge: the span ends one tap short of the kernel's right end.
    int left(const unsigned char* s, std::ptrdiff_t step, int length, int j) const {
        const int taps = std::min(length, j + half);
        if (taps < 1) return 0;
        int acc = 0, weights = 0;
        for (int t = 0; t < taps; ++t) {
            acc += kernel[half - j + t] * sample(s, step, t);
            weights += kernel[half - j + t];
        }
        return weights != 0 ? acc / weights : acc;
    }

    // Middle: the full span, divided by the whole kernel's sum.
    int middle(const unsigned char* s, std::ptrdiff_t step, int j) const {
        int acc = 0;
        for (int i = 0; i <= 2 * half; ++i) acc += kernel[i] * sample(s, step, j - half + i);
        return acc / kernel_sum;
    }

    // Right edge: the taps that fall inside the line, kept to the low byte.
    int right(const unsigned char* s, std::ptrdiff_t step, int length, int j) const {
        const int start = std::max(j - half, 0);
        if (start >= length) return 0;
        int acc = 0, weights = 0;
        for (int t = start; t < length; ++t) {
            acc += kernel[t - start] * sample(s, step, t);
            weights += kernel[t - start];
        }
        return (weights != 0 ? acc / weights : acc) & 0xFF;
    }

    // Reads the line from s (samples `in_step` apart) and writes it to out
    // (`out_step` apart).
    void run(const unsigned char* s, std::ptrdiff_t in_step, unsigned char* out,
             std::ptrdiff_t out_step, int length) const {
        // Each result is stored as its low byte.
        const auto put = [&](int j, int value) { out[j * out_step] = static_cast<unsigned char>(value); };
        for (int j = 0; j < half; ++j) put(j, left(s, in_step, length, j));
        for (int j = half; j < length - half; ++j) put(j, middle(s, in_step, j));
        for (int j = length - half; j < length; ++j) put(j, right(s, in_step, length, j));
    }
};

// The reference: each line copied out, then convolved tap by tap, one
// channel at a time. The copy lets dst be src, and a column is gathered once
// instead of being read across rows for every tap.
void blur_line_by_line(const LineConvolution& line, const qtzq::PassGeometry& g,
                       const unsigned char* src, unsigned char* dst) {
    std::vector<unsigned char> copy(std::size_t(g.length) * qtzq::kBytesPerPixel);
    for (int i = 0; i < g.lines; ++i) {
        const unsigned char* from = src + i * g.line_step;
        for (int t = 0; t < g.length; ++t)
            std::memcpy(&copy[std::size_t(t) * qtzq::kBytesPerPixel], from + t * g.pixel_step,
                        qtzq::kBytesPerPixel);
        for (int c = 0; c < kColourChannels; ++c)
            line.run(copy.data() + c, qtzq::kBytesPerPixel, dst + i * g.line_step + c,
                     g.pixel_step, g.length);
    }
}

}  // namespace

int CSharp::ConvoluteDimension(unsigned char* src, unsigned char* dst, int, bool horizontal,
                               bool) {
    if (m_kernelSize < 2 || m_width < 1 || m_height < 1) return 1;
    if (qtzq::integer_fast_paths_enabled()) {
        qtzq::blur_csharp_pass({m_kernel, m_kernelSum, m_kernelSize, m_width, m_height, horizontal}, src,
                               [dst](std::ptrdiff_t offset, const unsigned char* blurred) {
                                   std::memcpy(dst + offset, blurred, kColourChannels);
                               });
        return 1;
    }
    const auto g = qtzq::PassGeometry::of(m_width, m_height, horizontal);
    const LineConvolution line{m_kernel, m_kernelSum, std::min(g.length >> 1, m_kernelSize >> 1)};
    blur_line_by_line(line, g, src, dst);
    return 1;
}

int CSharp::GetBlur(unsigned char* src, unsigned char* dst, int a, int b, bool flag) {
    // The column pass works on dst in place: no intermediate image.
    ConvoluteDimension(src, dst, a, true, flag);
    ConvoluteDimension(dst, dst, b, false, flag);
    return 1;
}

int CSharp::GetBlur(unsigned char* src, unsigned char* dst, int width, int height, int radius,
                    int a, bool flag) {
    if (!SetRadius(radius)) return -1;
    m_width = width;
    m_stride = qtzq::row_stride(width);
    m_height = height;
    m_radius = static_cast<float>(radius);
    // Set twice, as the two-pass blur has always done; the kernel is the same.
    if (!SetRadius(radius)) return -1;
    return GetBlur(src, dst, radius, a, flag);
}
