// The four curve presets' worked examples (the golden digests pin every
// channel pair), and style presets on images without pixels.
#include <gtest/gtest.h>

#include <utility>

#include <qtzqeffect/qtzqeffect.h>

#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

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

TEST(StylePresets, ImagesWithoutPixelsAreLeftAsTheyAre) {
    const Bytes photo = noise(4, 4), m1 = noise(4, 4, 2);
    Bytes image = photo, material = m1, tables(196618, 1);
    for (const auto& [w, h] : {std::pair{0, 0}, std::pair{4, 0}, std::pair{0, 4}, std::pair{-3, 4}}) {
        for (auto preset : {StyleFilm, StyleJapanese, StyleXiaoQingXin, StyleGray})
            preset(image.data(), w, h);
        StyleMilk(image.data(), material.data(), material.data(), material.data(), w, h);
        StyleRouguang(image.data(), material.data(), w, h, tables.data());
    }
    EXPECT_EQ(image, photo);
    EXPECT_EQ(material, m1);
}

}  // namespace
