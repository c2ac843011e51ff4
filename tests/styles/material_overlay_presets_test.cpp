// Material-overlay presets: worked examples, and StyleReverse's opacity from
// the material's alpha in single precision.
#include <gtest/gtest.h>

#include <qtzqeffect/qtzqeffect.h>

#include "styles/curve_store.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

Bytes run(void (*preset)(unsigned char*, unsigned char*, int, int), Bytes image, Bytes material,
          int w = 1, int h = 1) {
    preset(image.data(), material.data(), w, h);
    return image;
}

TEST(MaterialOverlay, WorkedExamples) {
    const Bytes black = {0, 0, 0, 0};
    // Screening black is the identity, so mid-grey ends on curves 18-20 at 128.
    EXPECT_EQ(run(StyleBrightRed, {128, 128, 128, 200}, black), (Bytes{156, 156, 176, 200}));
    EXPECT_EQ(run(StyleLomoSnow, {128, 128, 128, 7}, black), (Bytes{184, 168, 142, 7}));
    // Black through the halo is 15 % of blue 241, green 242, red 255, truncated.
    EXPECT_EQ(run(StyleLomoHalo, {0, 0, 0, 5}, black), (Bytes{36, 36, 38, 5}));
}

TEST(MaterialOverlay, ReverseTakesItsOpacityFromTheMaterialAlpha) {
    // A transparent material leaves only the curves 21..23.
    const Bytes photo = noise(9, 6, 8);
    Bytes transparent = noise(9, 6, 9), curved = photo;
    for (std::size_t i = 0; i < photo.size(); i += 4) {
        transparent[i + 3] = 0;
        for (int c = 0; c < 3; ++c) curved[i + c] = qtzq::store_curve(23 - c)[photo[i + c]];
    }
    EXPECT_EQ(run(StyleReverse, photo, transparent, 9, 6), curved);

    // Alpha 2 in single precision keeps a curved blue of 101 under a
    // material blue of 129; the same opacity in double would give 100.
    int blue = 0;
    while (blue < 255 && qtzq::store_curve(23)[blue] != 101) ++blue;
    ASSERT_EQ(qtzq::store_curve(23)[blue], 101);
    EXPECT_EQ(run(StyleReverse, {static_cast<unsigned char>(blue), 0, 0, 0}, {129, 0, 0, 2})[0],
              101);
    Bytes in_double = {101, 0, 0, 0}, blend = {129, 0, 0, 2};
    SoftLightEx(in_double.data(), blend.data(), 2 * 0.7 / 255.0);
    EXPECT_EQ(in_double[0], 100);
}

}  // namespace
