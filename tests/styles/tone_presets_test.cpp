// Tone presets: worked examples, the vivid-colour strength's range, and the
// grain presets' seeding from the clock. (The golden digests pin every
// preset's output, the grain ones under a fixed clock.)
#include <gtest/gtest.h>

#include <cstdlib>

#include <qtzqeffect/qtzqeffect.h>

#include "support/clock_seeded.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

constexpr int kW = 16, kH = 16;

TEST(TonePresets, WorkedExamples) {
    Bytes black = {0, 0, 0, 17}, white = {255, 255, 255, 0};
    StyleImpression(black.data(), 1, 1);
    StyleImpression(white.data(), 1, 1);
    EXPECT_EQ(black, (Bytes{66, 43, 24, 17}));    // curves 48..50 at 0
    EXPECT_EQ(white, (Bytes{236, 236, 224, 0}));  // and at 255
    Bytes extremes = {0, 0, 0, 5, 255, 255, 255, 6};
    ABaoColor(extremes.data(), 2, 1, 100);
    EXPECT_EQ(extremes, (Bytes{0, 0, 0, 5, 255, 255, 255, 6}));
    // Retro on black: red 0, green 20, blue 63 before grain of -10..9.
    Bytes retro = qtzq_test::solid(kW, kH, 0, 0, 0, 40);
    StyleRetro(retro.data(), kW, kH);
    for (std::size_t i = 0; i < retro.size(); i += 4) {
        ASSERT_LE(retro[i + 2], 9);
        ASSERT_TRUE(retro[i + 1] >= 10 && retro[i + 1] <= 29);
        ASSERT_TRUE(retro[i] >= 53 && retro[i] <= 72);
        ASSERT_EQ(retro[i + 3], 40);
    }
}

TEST(TonePresets, VividStrengthIsClampedToZeroToHundred) {
    const auto vivid = [photo = noise(kW, kH, 8)](int strength) {
        Bytes image = photo;
        ABaoColor(image.data(), kW, kH, strength);
        return image;
    };
    EXPECT_EQ(vivid(0), noise(kW, kH, 8));
    EXPECT_EQ(vivid(-30), vivid(0));
    EXPECT_EQ(vivid(250), vivid(100));
}

// Within one second a grain preset repeats itself whatever rand() had drawn
// before, and it leaves rand() seeded with the second even without rows.
TEST(GrainPresets, ReseedRandFromTheClock) {
    const Bytes photo = noise(kW, kH, 9);
    for (auto preset : {StyleRetro, StyleLiuJin}) {
        const auto grain = [&] {
            Bytes image = photo;
            preset(image.data(), kW, kH);
            return image;
        };
        std::rand();
        const auto twice = qtzq_test::within_one_second(grain, grain);
        ASSERT_TRUE(twice);
        EXPECT_EQ(twice->first, twice->second);
        EXPECT_NE(twice->first, photo);

        const auto draws = qtzq_test::within_one_second(
            [&] {
                Bytes image = photo;
                preset(image.data(), kW, 0);
                return std::rand();
            },
            [] { return std::rand(); });
        ASSERT_TRUE(draws);
        EXPECT_EQ(draws->first, draws->second);
    }
}

}  // namespace
