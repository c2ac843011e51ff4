// The four curve presets: worked examples and whole-image invariants.
#include <gtest/gtest.h>

#include <qtzqeffect/styles.h>

#include "styles/curve_store.h"
#include "support/images.h"

using qtzq_test::Bytes;

namespace {

Bytes run(void (*preset)(unsigned char*, int, int), Bytes image, int width, int height) {
    preset(image.data(), width, height);
    return image;
}

Bytes pixel(unsigned char b, unsigned char g, unsigned char r, unsigned char a) {
    return {b, g, r, a};
}

TEST(CurvePresets, WorkedExamples) {
    EXPECT_EQ(run(StyleFilm, pixel(0, 0, 0, 77), 1, 1), pixel(51, 37, 19, 77));
    EXPECT_EQ(run(StyleJapanese, pixel(255, 255, 255, 9), 1, 1), pixel(246, 224, 196, 9));
    EXPECT_EQ(run(StyleXiaoQingXin, pixel(255, 255, 255, 0), 1, 1), pixel(218, 223, 214, 0));
    EXPECT_EQ(run(StyleGray, pixel(255, 0, 0, 200), 1, 1), pixel(28, 28, 28, 200));
    EXPECT_EQ(run(StyleGray, pixel(255, 255, 255, 1), 1, 1), pixel(255, 255, 255, 1));
    // Gray's own percent weights.
    EXPECT_EQ(run(StyleGray, pixel(0, 255, 0, 0), 1, 1), pixel(150, 150, 150, 0));  // 59 %
    EXPECT_EQ(run(StyleGray, pixel(0, 0, 255, 0), 1, 1), pixel(76, 76, 76, 0));     // 30 %
    EXPECT_EQ(run(StyleGray, pixel(10, 20, 30, 0), 1, 1), pixel(21, 21, 21, 0));    // 2190 / 100
}

TEST(CurvePresets, CurvePresetsMapEachChannelThroughItsOwnStoreCurve) {
    struct Case {
        void (*preset)(unsigned char*, int, int);
        int red, green, blue;
    };
    const Case cases[] = {{StyleFilm, 1, 2, 3}, {StyleJapanese, 7, 8, 9}};
    for (const Case& c : cases) {
        // Blue runs up the ramp, green down it, red at a third of the way
        // round, so that each channel meets every value once.
        Bytes image(256 * 4);
        for (int i = 0; i < 256; ++i) {
            image[4 * i] = static_cast<unsigned char>(i);
            image[4 * i + 1] = static_cast<unsigned char>(255 - i);
            image[4 * i + 2] = static_cast<unsigned char>((i + 85) & 255);
            image[4 * i + 3] = static_cast<unsigned char>(i ^ 0x5a);
        }
        const Bytes out = run(c.preset, image, 16, 16);
        for (int i = 0; i < 256; ++i) {
            ASSERT_EQ(out[4 * i], qtzq::store_curve(c.blue)[image[4 * i]]);
            ASSERT_EQ(out[4 * i + 1], qtzq::store_curve(c.green)[image[4 * i + 1]]);
            ASSERT_EQ(out[4 * i + 2], qtzq::store_curve(c.red)[image[4 * i + 2]]);
            ASSERT_EQ(out[4 * i + 3], image[4 * i + 3]);
        }
    }
}

TEST(CurvePresets, EmptyImagesAreLeftAsTheyAre) {
    for (auto preset : {StyleFilm, StyleJapanese, StyleXiaoQingXin, StyleGray}) {
        const Bytes image = qtzq_test::noise(4, 4);
        EXPECT_EQ(run(preset, image, 0, 0), image);
        EXPECT_EQ(run(preset, image, 4, 0), image);
        EXPECT_EQ(run(preset, image, 0, 4), image);
        EXPECT_EQ(run(preset, image, -3, 4), image);
    }
}

}  // namespace
