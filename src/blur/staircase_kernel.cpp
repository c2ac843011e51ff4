// The boxes of a staircase kernel.
#include "blur/staircase_kernel.h"

#include <algorithm>

namespace qtzq {

StaircaseKernel::StaircaseKernel(const int* weights, int taps) : cumulative_(1, 0) {
    std::vector<std::uint32_t> levels;
    for (int i = 0; i < taps; ++i) {
        const auto w = static_cast<std::uint32_t>(weights[i]);
        levels.push_back(w);
        cumulative_.push_back(cumulative_.back() + w);
    }
    std::sort(levels.begin(), levels.end());
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());

    std::uint32_t below = 0;
    for (std::uint32_t level : levels) {
        if (level == 0) continue;
        for (int i = 0; i < taps;) {
            if (static_cast<std::uint32_t>(weights[i]) < level) {
                ++i;
                continue;
            }
            const int begin = i;
            while (i < taps && static_cast<std::uint32_t>(weights[i]) >= level) ++i;
            boxes_.push_back({begin, i, level - below});
        }
        below = level;
    }
}

}  // namespace qtzq
