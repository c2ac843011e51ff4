// Runs of equal weights and the prefix-sum terms of a staircase kernel.
#include "blur/staircase_kernel.h"

namespace qtzq {

StaircaseKernel::StaircaseKernel(const int* weights, int taps) : taps_(taps), cumulative_(1, 0) {
    for (int i = 0; i < taps; ++i) {
        const auto w = static_cast<std::uint32_t>(weights[i]);
        if (runs_.empty() || runs_.back().weight != w) runs_.push_back({i, i + 1, w});
        else runs_.back().end = i + 1;
        cumulative_.push_back(cumulative_.back() + w);
    }
    // sum_i w[i] * (prefix[x+i+1] - prefix[x+i]) gathers, for each prefix
    // entry, the weight before it minus the weight after it: nonzero only at
    // the ends of runs.
    std::uint32_t before = 0;
    for (const WeightRun& run : runs_) {
        terms_.push_back({run.begin, before - run.weight});
        before = run.weight;
    }
    terms_.push_back({taps, before});
}

}  // namespace qtzq
