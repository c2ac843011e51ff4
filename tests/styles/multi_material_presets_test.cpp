// Multi-material presets and StyleMilk: each is its blends and curves in
// the stated order, recomputed here through the exported primitives.
#include <gtest/gtest.h>

#include <qtzqeffect/qtzqeffect.h>

#include "styles/curve_store.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;
using qtzq_test::solid;

namespace {

constexpr int kW = 7, kH = 6;

class MultiMaterial : public ::testing::Test {
protected:
    Bytes photo = noise(kW, kH, 41), m1 = noise(kW, kH, 42), m2 = noise(kW, kH, 43),
          m3 = noise(kW, kH, 44);

    // fn(pixel, material1 pixel, material2 pixel, material3 pixel) everywhere.
    template <typename Fn>
    Bytes per_pixel(Bytes image, Fn fn) {
        for (std::size_t i = 0; i < image.size(); i += 4) fn(&image[i], &m1[i], &m2[i], &m3[i]);
        return image;
    }
};

TEST_F(MultiMaterial, JinDianIsSelfThenMaterialsThenCurve) {
    Bytes image = photo;
    StyleJinDian(image.data(), m1.data(), m2.data(), kW, kH);
    EXPECT_EQ(image, per_pixel(photo, [](unsigned char* px, unsigned char* a, unsigned char* b,
                                         unsigned char*) {
                  CompositeColorEx(px, px, 1.0);
                  CompositeColorEx(px, a, 0.800000011920929);
                  CompositeColorEx(px, b, 0.6000000238418579);
                  for (int c = 0; c < 3; ++c) px[c] = qtzq::store_curve(35)[px[c]];
              }));
}

TEST_F(MultiMaterial, WarmOnBlackStartsAtRed35Green0Blue20) {
    Bytes image = solid(kW, kH, 0, 0, 0, 77), expected = solid(kW, kH, 20, 0, 35, 77);
    StyleWarm(image.data(), m1.data(), m2.data(), kW, kH);
    Light(expected.data(), kW, kH, 0, -10);
    EXPECT_EQ(image, per_pixel(expected, [](unsigned char* px, unsigned char* a, unsigned char* b,
                                            unsigned char*) {
                  MultipleEx(px, a, 1.0);
                  SoftLightEx(px, b, 1.0);
              }));
}

TEST_F(MultiMaterial, FenHongJiaRenCompositesInArgumentOrder) {
    Bytes image = photo;
    StyleFenHongJiaRen(image.data(), m1.data(), m2.data(), m3.data(), kW, kH);
    EXPECT_EQ(image, per_pixel(photo, [](unsigned char* px, unsigned char* a, unsigned char* b,
                                         unsigned char* c) {
                  CompositeColorEx(px, a, 1.0);
                  CompositeColorEx(px, b, 1.0);
                  CompositeColorEx(px, c, 1.0);
              }));
}

TEST_F(MultiMaterial, MilkIsLightSaturationHazeTextureWash) {
    Bytes image = photo, expected = photo;
    StyleMilk(image.data(), m1.data(), m2.data(), m3.data(), kW, kH);
    Light(expected.data(), kW, kH, 12, -12);
    Saturateconst(expected.data(), kW, kH, -25, 1);
    EXPECT_EQ(image, per_pixel(expected, [](unsigned char* px, unsigned char* a, unsigned char* b,
                                            unsigned char* c) {
                  ScreenEx(px, a, 0.5);
                  SoftLightEx(px, b, 1.0);
                  NormalEx(px, c, 0.2);
              }));
}

TEST_F(MultiMaterial, PresetsWithoutIdsAreSafeOnEmptyImages) {
    const Bytes before = photo;
    Bytes tables(196618, 1);
    StyleMilk(photo.data(), m1.data(), m2.data(), m3.data(), 0, 0);
    StyleRouguang(photo.data(), m1.data(), -1, 1, tables.data());
    EXPECT_EQ(photo, before);
    EXPECT_EQ(m1, noise(kW, kH, 42));
}

}  // namespace
