// Material-overlay presets: curves and blends per pixel, in the stated
// order, with the stated opacities.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include <qtzqeffect/qtzqeffect.h>

#include "styles/curve_store.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

using Step = std::function<void(unsigned char* px, unsigned char* m)>;
constexpr int kW = 9, kH = 6;

Step curves(int red, int green, int blue) {
    return [=](unsigned char* px, unsigned char*) {
        px[0] = qtzq::store_curve(blue)[px[0]];
        px[1] = qtzq::store_curve(green)[px[1]];
        px[2] = qtzq::store_curve(red)[px[2]];
    };
}
const Step screen = [](unsigned char* px, unsigned char* m) { ScreenEx(px, m, 1.0); };

// The steps through the exported primitives, all of them on one pixel
// before the next.
Bytes reference(Bytes image, Bytes material, const std::vector<Step>& steps) {
    for (std::size_t i = 0; i < image.size(); i += 4)
        for (const auto& step : steps) step(&image[i], &material[i]);
    return image;
}

Bytes run(void (*preset)(unsigned char*, unsigned char*, int, int), Bytes image, Bytes material,
          int w = kW, int h = kH) {
    preset(image.data(), material.data(), w, h);
    return image;
}

TEST(MaterialOverlay, EveryPresetIsItsStepsInOrder) {
    const Step halo_pull = [](unsigned char* px, unsigned char*) {
        unsigned char warm_white[4] = {241, 242, 255, 255};
        NormalEx(px, warm_white, 0.15000000596046448);
    };
    const Step soft_light_by_alpha = [](unsigned char* px, unsigned char* m) {
        SoftLightEx(px, m, static_cast<double>(float(m[3]) * 0.7f / 255.0f));
    };
    const Step soft_light = [](unsigned char* px, unsigned char* m) { SoftLightEx(px, m, 1.0); };
    const Bytes photo = noise(kW, kH, 11), material = noise(kW, kH, 12);
    EXPECT_EQ(run(StyleLomoNight, photo, material),
              reference(photo, material, {curves(11, 11, 11), screen}));
    EXPECT_EQ(run(StyleLomoSnow, photo, material),
              reference(photo, material, {curves(12, 13, 14), screen}));
    EXPECT_EQ(run(StyleLomoChristmas, photo, material),
              reference(photo, material, {curves(15, 16, 17), screen}));
    EXPECT_EQ(run(StyleBrightRed, photo, material),
              reference(photo, material, {screen, curves(18, 19, 20)}));
    EXPECT_EQ(run(StyleLomoStar, photo, material), reference(photo, material, {soft_light}));
    EXPECT_EQ(run(StyleReverse, photo, material),
              reference(photo, material, {curves(21, 22, 23), soft_light_by_alpha}));
    EXPECT_EQ(run(StyleLomoHalo, photo, material),
              reference(photo, material, {curves(34, 34, 34), screen, halo_pull}));
}

TEST(MaterialOverlay, WorkedExamples) {
    const Bytes black = {0, 0, 0, 0};
    // Screening black is the identity, so mid-grey ends on curves 18-20 at 128.
    EXPECT_EQ(run(StyleBrightRed, {128, 128, 128, 200}, black, 1, 1), (Bytes{156, 156, 176, 200}));
    EXPECT_EQ(run(StyleLomoSnow, {128, 128, 128, 7}, black, 1, 1), (Bytes{184, 168, 142, 7}));
    // Black through the halo is 15 % of blue 241, green 242, red 255, truncated.
    EXPECT_EQ(run(StyleLomoHalo, {0, 0, 0, 5}, black, 1, 1), (Bytes{36, 36, 38, 5}));
}

TEST(MaterialOverlay, ReverseTakesItsOpacityFromTheMaterialAlpha) {
    const Bytes photo = noise(kW, kH, 8);
    Bytes transparent = noise(kW, kH, 9);
    for (std::size_t i = 3; i < transparent.size(); i += 4) transparent[i] = 0;
    EXPECT_EQ(run(StyleReverse, photo, transparent),
              reference(photo, transparent, {curves(21, 22, 23)}));

    // Alpha 2 in single precision keeps a curved blue of 101 under a
    // material blue of 129; the same opacity in double would give 100.
    int blue = 0;
    while (blue < 255 && qtzq::store_curve(23)[blue] != 101) ++blue;
    ASSERT_EQ(qtzq::store_curve(23)[blue], 101);
    EXPECT_EQ(
        run(StyleReverse, {static_cast<unsigned char>(blue), 0, 0, 0}, {129, 0, 0, 2}, 1, 1)[0],
        101);
    Bytes in_double = {101, 0, 0, 0}, blend = {129, 0, 0, 2};
    SoftLightEx(in_double.data(), blend.data(), 2 * 0.7 / 255.0);
    EXPECT_EQ(in_double[0], 100);
}

}  // namespace
