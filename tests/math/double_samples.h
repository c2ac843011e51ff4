// Reproducible doubles for the maths tests, the same on every CPU and
// standard library (<random>'s distributions are not fixed by the standard).
#ifndef QTZQ_TESTS_MATH_DOUBLE_SAMPLES_H
#define QTZQ_TESTS_MATH_DOUBLE_SAMPLES_H

#include <cstdint>
#include <cstring>

namespace qtzq_test {

inline std::uint64_t bits_of(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

inline double from_bits(std::uint64_t bits) {
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// 2^exponent for -1074 <= exponent <= 1023, subnormals included.
inline double pow2(int exponent) {
    return from_bits(exponent >= -1022 ? std::uint64_t(exponent + 1023) << 52
                                       : std::uint64_t{1} << (exponent + 1074));
}

class DoubleSamples {
public:
    explicit DoubleSamples(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next_bits() {  // splitmix64
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }

    // Uniform in [low, high).
    double uniform(double low, double high) {
        return low + (high - low) * (double(next_bits() >> 11) * pow2(-53));
    }

    // A significand in [1, 2) times 2^e, e uniform in [low, high].
    double scaled(int low, int high) {
        const int e = low + int(next_bits() % std::uint64_t(high - low + 1));
        return uniform(1.0, 2.0) * pow2(e);
    }

    // A finite, non-zero double of either sign, uniform over bit patterns.
    double any_finite() {
        for (;;) {
            const std::uint64_t bits = next_bits();
            if (((bits >> 52) & 0x7FF) != 0x7FF && (bits << 1) != 0) return from_bits(bits);
        }
    }

private:
    std::uint64_t state_;
};

}  // namespace qtzq_test

#endif  // QTZQ_TESTS_MATH_DOUBLE_SAMPLES_H
