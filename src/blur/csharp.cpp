// CSharp: the object and its blur kernel.
#include <math.h>

#include "blur/preview_cache.h"
#include "qtzqeffect/blur.h"

namespace {

// Radius 50 gives 251 taps, the most the kernel holds; radius 0 would divide
// by zero.
constexpr int kSmallestRadius = 1;
constexpr int kLargestRadius = 50;

}  // namespace

// Every field starts defined: before a radius is set the kernel is empty,
// so a blur writes nothing rather than reading garbage.
CSharp::CSharp()
    : m_stride(0),
      m_height(0),
      m_width(0),
      m_kernel{},
      m_kernelSum(0),
      m_kernelSize(0),
      m_radius(0.0f),
      m_amount(0.0f),
      m_previewCache(nullptr) {}

CSharp::~CSharp() {
    qtzq::preview_cache_release(m_previewCache);
    m_previewCache = nullptr;
}

// The weights form a staircase on purpose: the exponent is an integer
// quotient, so runs of taps share one weight. Single-precision expf and
// the + 0.5f truncation are required as written. expf only ever sees the
// integers -4..4 here, where every platform's result is the correctly
// rounded one.
int CSharp::SetRadius(int radius) {
    if (radius < kSmallestRadius || radius > kLargestRadius) return 0;
    const int size = (5 * radius + 1) | 1;
    const int half = size >> 1;
    const int spread = 2 * radius * radius;

    const float peak = expf(static_cast<float>(half * half / spread));
    m_kernel[half] = static_cast<int>(peak + 0.5f);
    int sum = m_kernel[half];
    for (int i = 1; i <= half; ++i) {
        const float falloff = expf(static_cast<float>(-(i * i) / spread));
        const int weight = static_cast<int>(0.5f + peak * falloff);
        m_kernel[half - i] = weight;
        m_kernel[half + i] = weight;
        sum += 2 * weight;
    }
    m_kernelSize = size;
    m_kernelSum = sum;
    return 1;
}
