// The curve store against its sampled definition.
#include <gtest/gtest.h>

#include "curve_samples.h"
#include "styles/curve_store.h"

namespace {

using tablegen::defining_samples;
using tablegen::kSampleCount;
using tablegen::sample_index;

bool samples_never_fall(const unsigned char* samples) {
    for (int s = 1; s < kSampleCount; ++s)
        if (samples[s] < samples[s - 1]) return false;
    return true;
}

TEST(CurveStore, EveryCurvePassesThroughEveryListedSample) {
    ASSERT_EQ(tablegen::kCurveCount, qtzq::kCurveStoreSize);
    for (int k = 0; k < qtzq::kCurveStoreSize; ++k) {
        const unsigned char* samples = defining_samples(k);
        for (int s = 0; s < kSampleCount; ++s) {
            EXPECT_EQ(qtzq::store_curve(k)[sample_index(s)], samples[s])
                << "curve " << k << " at index " << sample_index(s);
        }
    }
}

TEST(CurveStore, RepeatedSlotsEqualTheirOriginalByteForByte) {
    const std::pair<int, int> repeats[] = {{20, 19}, {25, 24}, {26, 24}, {34, 11}, {35, 0},
                                           {40, 39}, {45, 30}, {46, 31}, {47, 32}};
    for (const auto& [slot, original] : repeats) {
        for (int i = 0; i < qtzq::kCurveLength; ++i)
            ASSERT_EQ(qtzq::store_curve(slot)[i], qtzq::store_curve(original)[i])
                << "slot " << slot << " index " << i;
    }
}

TEST(CurveStore, CurvesWithRisingSamplesNeverFall) {
    for (int k = 0; k < qtzq::kCurveStoreSize; ++k) {
        if (!samples_never_fall(defining_samples(k))) continue;
        for (int i = 1; i < qtzq::kCurveLength; ++i)
            ASSERT_GE(qtzq::store_curve(k)[i], qtzq::store_curve(k)[i - 1])
                << "curve " << k << " falls at index " << i;
    }
}

TEST(CurveStore, BetweenTwoSamplesValuesStayWithinTheirRange) {
    // The interpolation never overshoots: a value between two samples lies
    // between them (flat where they are equal).
    for (int k = 0; k < qtzq::kCurveStoreSize; ++k) {
        const unsigned char* samples = defining_samples(k);
        for (int s = 0; s + 1 < kSampleCount; ++s) {
            const int lo = std::min(samples[s], samples[s + 1]);
            const int hi = std::max(samples[s], samples[s + 1]);
            for (int i = sample_index(s); i <= sample_index(s + 1); ++i) {
                ASSERT_GE(qtzq::store_curve(k)[i], lo) << "curve " << k << " index " << i;
                ASSERT_LE(qtzq::store_curve(k)[i], hi) << "curve " << k << " index " << i;
            }
        }
    }
}

}  // namespace
