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
        if (largest_dividend <= 0xFFFFu) find_short_form(divisor, largest_dividend);
    }

    std::uint32_t multiplier() const { return multiplier_; }
    int shift() const { return shift_; }

    // For dividends below 2^16: a multiplier below 2^16 and a shift s with
    // floor(floor(n * m / 2^16) / 2^s) = floor(n / d) for every n up to the
    // bound (one 16-bit multiply-high and a shift), or 0 when there is none.
    std::uint16_t short_multiplier() const { return short_multiplier_; }
    int short_shift() const { return short_shift_; }

    std::uint32_t operator()(std::uint32_t dividend) const {
        return static_cast<std::uint32_t>((std::uint64_t(dividend) * multiplier_) >> shift_);
    }

private:
    // With k = 16 + s, m = ceil(2^k / d) and e = m * d - 2^k (0 <= e < d),
    // n * m / 2^k = n / d + n * e / (d * 2^k); with n = q * d + r, r <= d - 1,
    // its floor is q whenever n * e < 2^k, so bound * e < 2^k makes every
    // quotient exact. The largest shift that keeps m below 2^16 is kept.
    void find_short_form(std::uint32_t divisor, std::uint32_t largest_dividend) {
        for (int s = 0; s < 16; ++s) {
            const std::uint64_t power = std::uint64_t(1) << (16 + s);
            const std::uint64_t m = (power + divisor - 1) / divisor;
            if (m > 0xFFFFu) break;
            if (std::uint64_t(largest_dividend) * (m * divisor - power) < power) {
                short_multiplier_ = static_cast<std::uint16_t>(m);
                short_shift_ = s;
            }
        }
    }

    std::uint32_t multiplier_;
    int shift_;
    std::uint16_t short_multiplier_ = 0;
    int short_shift_ = 0;
};

}  // namespace qtzq

#endif  // QTZQ_BLUR_EXACT_DIVIDER_H
