// Automatic levels: the analyse flag, single-value channels, tail bounds and
// rounding; DanyaUseStone's two steps.
#include <gtest/gtest.h>

#include <vector>

#include <qtzqeffect/pixel.h>

#include "pixel/colour_rows.h"
#include "support/images.h"

using qtzq_test::Bytes;

namespace {

Bytes levelled(Bytes image, int width, int height, bool analyse = true) {
    AutoColorLevel(image.data(), width, height, analyse);
    return image;
}

TEST(AutoColorLevel, WithoutAnalysisColoursStayAsTheyAre) {
    const Bytes ramp = qtzq_test::grey_ramp(40);
    EXPECT_EQ(levelled(ramp, 256, 1, false), ramp);  // every value 0..255
    const Bytes image = qtzq_test::noise(50, 30, 14);
    EXPECT_EQ(levelled(image, 50, 30, false), image);
    EXPECT_EQ(levelled(image, 0, 30), image);  // no pixels
    AutoColorLevel(nullptr, 4, 4, true);
}

TEST(AutoColorLevel, SingleValueChannelsBecomeZero) {
    // L = H = v for 0 < v < 255; v = 0 keeps L = H = 0; v = 255 keeps
    // H = 255 but gets L = 255. Every value is then <= L.
    for (int v : {0, 1, 37, 254, 255}) {
        const Bytes image = qtzq_test::solid(8, 4, v, v, v, 200);
        EXPECT_EQ(levelled(image, 8, 4), qtzq_test::solid(8, 4, 0, 0, 0, 200)) << "value " << v;
    }
}

TEST(AutoColorLevel, BoundsLieOneStepInsideTheTails) {
    // Even ramp (1/256 per value): L = 2, H = 253, v -> (v - 2) * 255 / 251
    // rounded half away from zero and clamped.
    const Bytes ramp = levelled(qtzq_test::grey_ramp(3), 256, 1);
    const int expected[][2] = {{1, 0}, {2, 0}, {3, 1}, {128, 128}, {252, 254}, {253, 255}};
    for (const auto& e : expected) EXPECT_EQ(ramp[4 * e[0] + 2], e[1]) << "value " << e[0];
    // 2 % of the pixels at 50 give L = 50 exactly, the rest at 200 H = 200;
    // 125 maps to 127.5, rounded up. Red holds two values, green one: each
    // channel is levelled on its own.
    std::vector<std::vector<int>> colours(98, {200, 60, 100});
    colours.push_back({50, 60, 110});
    colours.push_back({50, 60, 110});
    colours[0][0] = 125;
    const Bytes result = levelled(qtzq_test::colour_row(colours, 5), 100, 1);
    EXPECT_EQ(Bytes(result.begin(), result.begin() + 8), (Bytes{128, 0, 0, 5, 255, 0, 0, 5}));
    EXPECT_EQ(Bytes(result.end() - 4, result.end()), (Bytes{0, 0, 255, 5}));
}

// Balance with lightness kept, then levels; regions other than midtones and
// highlights mean shadows.
TEST(DanyaUseStone, RegionsOutsideTheRangeMeanShadows) {
    const Bytes image = qtzq_test::noise(40, 25, 16);
    Bytes shadows = image;
    DanyaUseStone(shadows.data(), 40, 25, 0, 30, -20, 45);
    EXPECT_NE(shadows, image);
    for (int region : {-1, 3}) {
        Bytes actual = image;
        DanyaUseStone(actual.data(), 40, 25, region, 30, -20, 45);
        EXPECT_EQ(actual, shadows) << "region " << region;
    }
}

}  // namespace
