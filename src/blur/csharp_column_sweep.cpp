// CSharp's column pass as one sweep down the image.
//
// Row y of the blur reads P[y - half .. y + half + 1] at most (the middle;
// the edges clamp into that range), so it can be formed as soon as row
// y + half of the row pass is in, and 2 * half + 2 prefix rows are all that
// is ever needed.
#include "blur/csharp_column_sweep.h"

#include <algorithm>

#include "blur/vector/csharp_rows.h"
#include "pixel/image_walk.h"
#include "simd/vector_unit.h"

namespace qtzq {

namespace {

constexpr std::uint32_t kLargestSample = 255;

struct Kernels {
    void (*add_prefix_row)(const CSharpRowPrefix&);
    void (*sum_row_boxes)(const CSharpRowBoxes&);
};

Kernels kernels() {
#if defined(QTZQ_X86_KERNELS)
    if (active_vector_unit() == VectorUnit::kAvx2)
        return {avx2::add_csharp_prefix_row, avx2::sum_csharp_row_boxes};
#endif
#if defined(QTZQ_NEON_KERNELS)
    if (active_vector_unit() == VectorUnit::kNeon) return {neon::add_csharp_prefix_row, neon::sum_csharp_row_boxes};
#endif
    return {portable::add_csharp_prefix_row, portable::sum_csharp_row_boxes};
}

int column_half(int kernel_size, int height) { return std::min(height >> 1, kernel_size >> 1); }

std::size_t padded_lanes(int width) {
    const std::size_t bytes = std::size_t(width) * kBytesPerPixel;
    return (bytes + kCSharpRowLanes - 1) / kCSharpRowLanes * kCSharpRowLanes;
}

// The largest sum of a column's window: the used taps' weights times 255.
// Sums up to 0xFFFF are kept in 16 bits.
std::uint32_t largest_sum(const StaircaseKernel& kernel, int half) {
    return kernel.weight_sum(0, 2 * half + 1) * kLargestSample;
}

}  // namespace

CSharpColumnSweep::CSharpColumnSweep(const int* kernel, int kernel_sum, int kernel_size, int width,
                                     int height)
    : kernel_(kernel, 2 * column_half(kernel_size, height) + 1),
      half_(column_half(kernel_size, height)),
      height_(height),
      row_bytes_(std::ptrdiff_t(width) * kBytesPerPixel),
      lanes_(static_cast<std::ptrdiff_t>(padded_lanes(width))),
      slots_(2 * half_ + 2),
      narrow_(largest_sum(kernel_, half_) <= 0xFFFFu),
      middle_(static_cast<std::uint32_t>(std::max(kernel_sum, 1)), largest_sum(kernel_, half_)),
      ring_(narrow_ ? 0 : std::size_t(slots_) * lanes_),
      ring16_(narrow_ ? std::size_t(slots_) * lanes_ : 0),
      out_(std::size_t(lanes_)) {
    for (const WeightBox& box : kernel_.boxes()) heights_.push_back(box.height);
}

std::size_t CSharpColumnSweep::ring_bytes(const int* kernel, int kernel_size, int width, int height) {
    const int half = column_half(kernel_size, height);
    const bool narrow = largest_sum(StaircaseKernel(kernel, 2 * half + 1), half) <= 0xFFFFu;
    return std::size_t(2 * half + 2) * padded_lanes(width) * (narrow ? 2 : 4);
}

std::size_t CSharpColumnSweep::slot(int index) const {
    return std::size_t(index % slots_) * std::size_t(lanes_);
}

// P[added + 1] = P[added] + row, over the slot of a prefix row no longer
// needed: the rows of the blur that read it have all been handed over.
// The lanes past the row's bytes stay zero.
void CSharpColumnSweep::add_prefix_row(const unsigned char* row) {
    const std::size_t from = slot(added_), to = slot(added_ + 1);
    const CSharpRowPrefix job{narrow_ ? nullptr : ring_.data() + from,
                              narrow_ ? ring16_.data() + from : nullptr, row,
                              narrow_ ? nullptr : ring_.data() + to,
                              narrow_ ? ring16_.data() + to : nullptr, row_bytes_};
    kernels().add_prefix_row(job);
    ++added_;
}

// Whether every row that the next row of the blur reads is in.
bool CSharpColumnSweep::ready() const {
    return next_ < height_ && (added_ == height_ || next_ + half_ + 1 <= added_);
}

// The middle uses every tap and divides by the kernel's sum; the top
// edge stops one row short of the kernel's lower end, the bottom edge runs
// to the last row, and both divide by the weights they used.
CSharpColumnSweep::Window CSharpColumnSweep::window(int y) const {
    const int base = y - half_;
    if (y >= half_ && y < height_ - half_) return {base, base, base + 2 * half_ + 1, middle_};
    const int lo = y < half_ ? 0 : std::max(base, 0);
    const int hi = y < half_ ? std::min(height_, y + half_) : height_;
    const std::uint32_t weights = kernel_.weight_sum(lo - base, hi - base);
    return {base, lo, hi, ExactDivider(std::max(weights, 1u), weights * kLargestSample)};
}

const unsigned char* CSharpColumnSweep::blur_next_row() {
    const Window w = window(next_++);
    begins_.clear();
    ends_.clear();
    for (const WeightBox& box : kernel_.boxes()) {
        begins_.push_back(slot(std::clamp(w.base + box.begin, w.lo, w.hi)));
        ends_.push_back(slot(std::clamp(w.base + box.end, w.lo, w.hi)));
    }
    kernels().sum_row_boxes({narrow_ ? nullptr : ring_.data(), narrow_ ? ring16_.data() : nullptr,
                             begins_.data(), ends_.data(), heights_.data(),
                             static_cast<int>(heights_.size()), lanes_, w.divide, out_.data()});
    return out_.data();
}

}  // namespace qtzq
