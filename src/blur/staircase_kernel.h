// An integer kernel seen as a stack of boxes, applied to a line through the
// line's prefix sums: a weighted sum over a window then costs one difference
// and one multiply per box instead of one multiply per tap, whatever the
// radius. A staircase kernel (a flat top, steps down on both sides) is a few
// nested boxes, one per step.
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

// `height` added to every tap in [begin, end).
struct WeightBox {
    int begin;
    int end;
    std::uint32_t height;
};

class StaircaseKernel {
public:
    // Weights must not be negative.
    StaircaseKernel(const int* weights, int taps);


    // Boxes that stacked give the weights: level by level, the stretches of
    // taps at least as heavy as the level, each as high as the step up to
    // it. With prefix[t] = s[0] + ... + s[t-1], the sum of weight[i] *
    // s[x + i] over every tap is the sum of height * (prefix[x + end] -
    // prefix[x + begin]) over the boxes.
    const std::vector<WeightBox>& boxes() const { return boxes_; }

    // weight[begin] + ... + weight[end - 1].
    std::uint32_t weight_sum(int begin, int end) const { return cumulative_[end] - cumulative_[begin]; }

private:
    std::vector<WeightBox> boxes_;
    std::vector<std::uint32_t> cumulative_;
};

}  // namespace qtzq

#endif  // QTZQ_BLUR_STAIRCASE_KERNEL_H
