// CSharp's blur pass over blocks of lines.
//
// With prefix[t] = s[0] + ... + s[t-1] per lane, a window's weighted sum is
// a handful of prefix differences: the kernel is a staircase, a few nested
// boxes. Every sum is integer and fits in 32 bits (weights of a
// few tens, at most 255 taps, samples below 256), so the results are those
// of the tap-by-tap sums exactly.
#include "blur/csharp_line_blocks.h"

#include <algorithm>

#include "blur/vector/csharp_middle.h"
#include "simd/vector_unit.h"

namespace qtzq {

namespace {

constexpr std::uint32_t kLargestSample = 255;

struct Kernels {
    void (*fill_prefix)(const CSharpPrefix&, int);
    void (*blur_middle)(const CSharpMiddle&, int);
};

Kernels kernels() {
#if defined(QTZQ_X86_KERNELS)
    if (active_vector_unit() == VectorUnit::kAvx2)
        return {avx2::fill_csharp_prefix, avx2::blur_csharp_middle};
#endif
#if defined(QTZQ_NEON_KERNELS)
    if (active_vector_unit() == VectorUnit::kNeon)
        return {neon::fill_csharp_prefix, neon::blur_csharp_middle};
#endif
    return {portable::fill_csharp_prefix, portable::blur_csharp_middle};
}

}  // namespace

template <int kLanes>
CSharpLineBlocks<kLanes>::CSharpLineBlocks(const int* kernel, int kernel_sum, int half, int length)
    : kernel_(kernel, 2 * half + 1),
      divide_(static_cast<std::uint32_t>(std::max(kernel_sum, 1)),
              kernel_.weight_sum(0, 2 * half + 1) * kLargestSample),
      half_(half),
      length_(length),
      narrow_(kernel_.weight_sum(0, 2 * half + 1) * kLargestSample <= 0xFFFFu),
      prefix_(narrow_ ? 0 : (std::size_t(length) + 1) * kLanes),
      prefix16_(narrow_ ? (std::size_t(length) + 1) * kLanes : 0) {}

template <int kLanes>
void CSharpLineBlocks<kLanes>::blur(const unsigned char* in, std::ptrdiff_t step,
                                    std::ptrdiff_t line_step, unsigned char* out) {
    fill_prefix(in, step, line_step);
    blur_middle(out);
    for (int lane = 0; lane < kLanes; ++lane) {
        for (int j = 0; j < half_; ++j) out[std::size_t(j) * kLanes + lane] = left_edge(lane, j);
        for (int j = length_ - half_; j < length_; ++j)
            out[std::size_t(j) * kLanes + lane] = right_edge(lane, j);
    }
}

template <int kLanes>
void CSharpLineBlocks<kLanes>::fill_prefix(const unsigned char* in, std::ptrdiff_t step,
                                           std::ptrdiff_t line_step) {
    kernels().fill_prefix({in, step, line_step, length_, narrow_ ? nullptr : prefix_.data(),
                           narrow_ ? prefix16_.data() : nullptr},
                          kLanes);
}

// Positions half .. length-half-1: the whole kernel over the window starting
// at j - half, divided by the kernel's sum.
template <int kLanes>
void CSharpLineBlocks<kLanes>::blur_middle(unsigned char* out) const {
    const std::vector<WeightBox>& boxes = kernel_.boxes();
    const CSharpMiddle job{narrow_ ? nullptr : prefix_.data(), narrow_ ? prefix16_.data() : nullptr,
                           boxes.data(), static_cast<int>(boxes.size()), half_, half_, length_ - half_,
                           divide_, out};
    kernels().blur_middle(job, kLanes);
}

// Sum of K[t + offset] * s[t] over samples t in [lo, hi) of one lane.
template <int kLanes>
std::uint32_t CSharpLineBlocks<kLanes>::window_sum(int lane, int offset, int lo, int hi) const {
    const auto prefix = [&](int tap) {
        const int t = std::clamp(tap - offset, lo, hi);
        const std::size_t at = std::size_t(t) * kLanes + lane;
        return narrow_ ? prefix16_[at] : prefix_[at];
    };
    std::uint32_t sum = 0;
    // Differences modulo 2^16 for 16-bit sums: each box's true sum fits.
    const std::uint32_t modulus_mask = narrow_ ? 0xFFFFu : 0xFFFFFFFFu;
    for (const WeightBox& box : kernel_.boxes())
        sum += box.height * ((prefix(box.end) - prefix(box.begin)) & modulus_mask);
    return sum;
}

// The left edge stops one sample short of the kernel's right end and divides
// by the weights it used.
template <int kLanes>
unsigned char CSharpLineBlocks<kLanes>::left_edge(int lane, int j) const {
    const int offset = half_ - j, hi = std::min(length_, j + half_);
    if (hi < 1) return 0;
    const std::uint32_t sum = window_sum(lane, offset, 0, hi);
    const std::uint32_t weights = kernel_.weight_sum(offset, offset + hi);
    return static_cast<unsigned char>(weights != 0 ? sum / weights : sum);
}

// The right edge runs to the line's end and divides by the weights it used.
template <int kLanes>
unsigned char CSharpLineBlocks<kLanes>::right_edge(int lane, int j) const {
    const int offset = half_ - j, lo = std::max(j - half_, 0);
    if (lo >= length_) return 0;
    const std::uint32_t sum = window_sum(lane, offset, lo, length_);
    const std::uint32_t weights = kernel_.weight_sum(lo + offset, length_ + offset);
    return static_cast<unsigned char>(weights != 0 ? sum / weights : sum);
}

template class CSharpLineBlocks<4>;
template class CSharpLineBlocks<32>;

}  // namespace qtzq
