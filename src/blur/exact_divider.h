// Division by a divisor fixed for a whole pass, as a multiply and a shift:
// exactly the truncating quotient for every dividend up to a stated bound,
// and unlike a division instruction it vectorises.
#ifndef QTZQ_BLUR_EXACT_DIVIDER_H
#define QTZQ_BLUR_EXACT_DIVIDER_H

#include <cstdint>

namespace qtzq {

class ExactDivider {
public:
    // divisor >= 1; largest_dividend < 2^30, so that the multiplier fits in
    // 32 bits and the product is a 32 x 32 -> 64-bit multiply.
    ExactDivider(std::uint32_t divisor, std::uint32_t largest_dividend) {
        int dividend_bits = 0;
        while (dividend_bits < 30 && (std::uint32_t(1) << dividend_bits) <= largest_dividend)
            ++dividend_bits;
        int divisor_bits = 0;  // ceil(log2(divisor))
        while ((std::uint64_t(1) << divisor_bits) < divisor) ++divisor_bits;
        // m = ceil(2^k / d) with k = N + ceil(log2 d) gives m * d - 2^k < d
        // <= 2^(k - N), which makes floor(n * m / 2^k) = floor(n / d) for
        // every n < 2^N; m <= 2^(N + 1), so it fits in 32 bits.
        shift_ = dividend_bits + divisor_bits;
        multiplier_ = static_cast<std::uint32_t>(((std::uint64_t(1) << shift_) + divisor - 1) / divisor);
    }

    std::uint32_t multiplier() const { return multiplier_; }
    int shift() const { return shift_; }

    std::uint32_t operator()(std::uint32_t dividend) const {
        return static_cast<std::uint32_t>((std::uint64_t(dividend) * multiplier_) >> shift_);
    }

private:
    std::uint32_t multiplier_;
    int shift_;
};

}  // namespace qtzq

#endif  // QTZQ_BLUR_EXACT_DIVIDER_H
