// The colour blend mode against a constant, precomputed, equals color_ex on
// every pixel: all greys and a large spread of colours, for constants that
// are grey, saturated and in between, at several opacities.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "pixel/blend_kernels.h"
#include "pixel/colour_against_constant.h"

namespace {

TEST(ColourAgainstConstant, EqualsTheColourModeOnEveryPixel) {
    const unsigned char kColours[][4] = {{56, 47, 47, 0}, {0, 0, 255, 9}, {128, 128, 128, 0}, {250, 3, 77, 0}};
    const double kOpacities[] = {0.8, 1.0, 0.0, 0.35};
    std::uint32_t state = 99;
    for (const auto& colour : kColours)
        for (double opacity : kOpacities) {
            const qtzq::ColourAgainstConstant fast(colour, opacity);
            for (int i = 0; i < 200000; ++i) {
                state = state * 1664525u + 1013904223u;
                const std::uint32_t bits = i < 256 ? std::uint32_t(i) * 0x010101u : state >> 8;
                unsigned char expected[4] = {static_cast<unsigned char>(bits), static_cast<unsigned char>(bits >> 8),
                                             static_cast<unsigned char>(bits >> 16), 7};
                unsigned char actual[4] = {expected[0], expected[1], expected[2], expected[3]};
                qtzq::color_ex(expected, colour, opacity);
                fast.apply(actual);
                ASSERT_EQ(0, std::memcmp(expected, actual, 4)) << bits << " opacity " << opacity;
            }
        }
}

}  // namespace
