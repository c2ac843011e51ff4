// The colourful frame: kinds 1 and 2 screen, 3 and 4 soft-light at full
// opacity, any other kind leaves the photo; only the member checks buffers.
#include <gtest/gtest.h>

#include <qtzqeffect/qtzqeffect.h>

#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;
using qtzq_test::solid;

namespace {

constexpr int kW = 6, kH = 4;

Bytes framed(Bytes image, Bytes material, int kind) {
    EXPECT_EQ(Qtzqeffect().ColorfulFrame(image.data(), material.data(), kW, kH, kind), 1);
    return image;
}

TEST(ColourfulFrame, KindsComeInPairsAndOthersKeepThePhoto) {
    const Bytes photo = noise(kW, kH, 52), material = noise(kW, kH, 53);
    EXPECT_EQ(framed(photo, material, 1), framed(photo, material, 2));
    EXPECT_EQ(framed(photo, material, 3), framed(photo, material, 4));
    EXPECT_NE(framed(photo, material, 1), framed(photo, material, 3));
    Bytes free_function = photo, m = material;
    FrameXCBK(free_function.data(), m.data(), kW, kH, 4);
    EXPECT_EQ(free_function, framed(photo, material, 4));
    for (int kind : {0, 5, -1, 1 << 30}) EXPECT_EQ(framed(photo, material, kind), photo);
}

TEST(ColourfulFrame, ScreenWithBlackKeepsAndWithWhiteWhitens) {
    const Bytes photo = noise(kW, kH, 51);
    Bytes white = solid(kW, kH, 255, 255, 255);
    for (std::size_t i = 3; i < white.size(); i += 4) white[i] = photo[i];  // alpha stays
    EXPECT_EQ(framed(photo, solid(kW, kH, 0, 0, 0), 1), photo);
    EXPECT_EQ(framed(photo, solid(kW, kH, 255, 255, 255, 0), 2), white);
}

TEST(ColourfulFrame, NullBuffersAndEmptyImages) {
    Bytes image = noise(1, 1, 56), material = noise(1, 1, 57);
    const Bytes before = image;
    Qtzqeffect effects;
    EXPECT_EQ(effects.ColorfulFrame(image.data(), nullptr, 1, 1, 7), 0);
    EXPECT_EQ(effects.ColorfulFrame(nullptr, material.data(), 1, 1, 1), 0);
    EXPECT_EQ(effects.ColorfulFrame(image.data(), material.data(), 0, 0, 1), 1);
    EXPECT_EQ(effects.ColorfulFrame(image.data(), material.data(), -1, 1, 3), 1);
    EXPECT_EQ(image, before);
    EXPECT_EQ(effects.ColorfulFrame(image.data(), material.data(), 1, 1, 3), 1);
    EXPECT_EQ(image[3], before[3]);
}

}  // namespace
