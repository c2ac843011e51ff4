// An integer kernel whose weights come in runs of equal values, applied to a
// line through the line's prefix sums: a weighted sum over a window then
// costs one term per run instead of one per tap, whatever the radius.
//
// All of it is integer arithmetic, so it is exact: the sums are formed modulo
// 2^32 (unsigned, so wrapping is defined) and every result whose true value
// fits in 32 bits comes out as that value, in whatever order the terms were
// added.
#ifndef QTZQ_BLUR_STAIRCASE_KERNEL_H
#define QTZQ_BLUR_STAIRCASE_KERNEL_H

#include <cstdint>
#include <vector>

namespace qtzq {

// Taps [begin, end) of the kernel, all of weight `weight`.
struct WeightRun {
    int begin;
    int end;
    std::uint32_t weight;
};

// One term of a whole-kernel sum: coefficient * prefix[x + offset].
struct PrefixTerm {
    int offset;
    std::uint32_t coefficient;  // a weight difference, modulo 2^32
};

class StaircaseKernel {
public:
    StaircaseKernel(const int* weights, int taps);

    int taps() const { return taps_; }
    const std::vector<WeightRun>& runs() const { return runs_; }

    // With prefix[t] = s[0] + ... + s[t-1]: sum of weight[i] * s[x + i] over
    // every tap i equals the sum of coefficient * prefix[x + offset] over
    // these terms, one per place where the weight changes.
    const std::vector<PrefixTerm>& whole_kernel_terms() const { return terms_; }

    // weight[begin] + ... + weight[end - 1].
    std::uint32_t weight_sum(int begin, int end) const { return cumulative_[end] - cumulative_[begin]; }

private:
    int taps_;
    std::vector<WeightRun> runs_;
    std::vector<PrefixTerm> terms_;
    std::vector<std::uint32_t> cumulative_;
};

}  // namespace qtzq

#endif  // QTZQ_BLUR_STAIRCASE_KERNEL_H
