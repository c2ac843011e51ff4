// CSharp's separable integer blur.
#include <algorithm>
#include <cstddef>
#include <vector>

#include "blur/csharp_size.h"
#include "pixel/image_walk.h"
#include "qtzqeffect/blur.h"

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

    void run(const unsigned char* s, unsigned char* out, std::ptrdiff_t step, int length) const {
        // Each result is stored as its low byte.
        const auto put = [&](int j, int value) { out[j * step] = static_cast<unsigned char>(value); };
        for (int j = 0; j < half; ++j) put(j, left(s, step, length, j));
        for (int j = half; j < length - half; ++j) put(j, middle(s, step, j));
        for (int j = length - half; j < length; ++j) put(j, right(s, step, length, j));
    }
};

}  // namespace

int CSharp::ConvoluteDimension(unsigned char* src, unsigned char* dst, int, bool horizontal,
                               bool) {
    if (m_kernelSize < 2 || m_width < 1 || m_height < 1) return 1;
    const std::ptrdiff_t row_bytes = std::ptrdiff_t(m_width) * qtzq::kBytesPerPixel;
    const int length = horizontal ? m_width : m_height;
    const int lines = horizontal ? m_height : m_width;
    const std::ptrdiff_t pixel_step = horizontal ? std::ptrdiff_t(qtzq::kBytesPerPixel) : row_bytes;
    const std::ptrdiff_t line_step = horizontal ? row_bytes : std::ptrdiff_t(qtzq::kBytesPerPixel);

    const LineConvolution line{m_kernel, m_kernelSum, std::min(length >> 1, m_kernelSize >> 1)};
    for (int c = 0; c < kColourChannels; ++c) {
        for (int i = 0; i < lines; ++i) {
            const std::ptrdiff_t start = i * line_step + c;
            line.run(src + start, dst + start, pixel_step, length);
        }
    }
    return 1;
}

int CSharp::GetBlur(unsigned char* src, unsigned char* dst, int a, int b, bool flag) {
    std::vector<unsigned char> scratch(qtzq::pixel_count(m_width, m_height) * qtzq::kBytesPerPixel);
    ConvoluteDimension(src, scratch.data(), a, true, flag);
    ConvoluteDimension(scratch.data(), dst, b, false, flag);
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
