#include "blur/deriche_line_filter.h"

#include <algorithm>

namespace qtzq {
namespace {

constexpr int kOrder = kDericheTaps - 1;

std::size_t work_size(int max_length) {
    return max_length > 0 ? std::size_t(max_length) * kFilteredChannels : 0;
}

}  // namespace

DericheLineFilter::DericheLineFilter(int max_length)
    : causal_(work_size(max_length)), anticausal_(work_size(max_length)) {}

void DericheLineFilter::run(const unsigned char* in, std::ptrdiff_t in_step, unsigned char* out,
                            std::ptrdiff_t out_step, int length, const DericheCoefficients& k) {
    if (length < 1) return;
    const std::size_t used = std::size_t(length) * kFilteredChannels;
    double* const y = causal_.data();
    double* const z = anticausal_.data();
    std::fill(y, y + used, 0.0);
    std::fill(z, z + used, 0.0);

    const auto x = [&](int position, int c) -> double { return in[position * in_step + c]; };
    double first[kFilteredChannels], last[kFilteredChannels];
    for (int c = 0; c < kFilteredChannels; ++c) {
        first[c] = x(0, c);
        last[c] = x(length - 1, c);
    }

    for (int step = 0; step < length; ++step) {
        const int p = step;               // causal position
        const int q = length - 1 - step;  // anticausal position
        const int taps = std::min(step, kOrder);
        for (int c = 0; c < kFilteredChannels; ++c) {
            double causal = 0.0;
            for (int i = 0; i <= taps; ++i)
                causal += k.n[i] * x(p - i, c) - k.d[i] * y[(p - i) * kFilteredChannels + c];
            for (int i = taps + 1; i <= kOrder; ++i) causal += (k.n[i] - k.bn[i]) * first[c];
            y[p * kFilteredChannels + c] = causal;

            double anticausal = 0.0;
            for (int i = 0; i <= taps; ++i)
                anticausal +=
                    k.m[i] * x(q + i, c) - k.dAnti[i] * z[(q + i) * kFilteredChannels + c];
            for (int i = taps + 1; i <= kOrder; ++i) anticausal += (k.m[i] - k.bm[i]) * last[c];
            z[q * kFilteredChannels + c] = anticausal;
        }
    }

    for (int p = 0; p < length; ++p) {
        for (int c = 0; c < kFilteredChannels; ++c) {
            const std::size_t at = std::size_t(p) * kFilteredChannels + c;
            out[p * out_step + c] = filtered_to_byte(y[at] + z[at]);
        }
    }
}

}  // namespace qtzq
