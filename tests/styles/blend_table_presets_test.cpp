// Blend-table presets: where the maps lie in the table set, the order of
// the map steps and what each preset feeds them.
#include <gtest/gtest.h>

#include <functional>

#include <qtzqeffect/qtzqeffect.h>

#include "styles/curve_store.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

constexpr int kW = 8, kH = 5;
constexpr std::size_t kMapStart[3] = {4, 65543, 131082};

// A set of exactly the minimum size, 196618 bytes (reading past it is a
// fault under the sanitizers); the bytes outside the maps hold 0xEE.
Bytes table_set(const std::function<int(int map, int a, int b)>& rule) {
    Bytes tables(196618, 0xEE);
    for (int map = 0; map < 3; ++map)
        for (int a = 0; a < 256; ++a)
            for (int b = 0; b < 256; ++b)
                tables[kMapStart[map] + a * 256 + b] = static_cast<unsigned char>(rule(map, a, b));
    return tables;
}

Bytes curved(Bytes image, int red, int green, int blue) {
    for (std::size_t i = 0; i < image.size(); i += 4) {
        image[i] = qtzq::store_curve(blue)[image[i]];
        image[i + 1] = qtzq::store_curve(green)[image[i + 1]];
        image[i + 2] = qtzq::store_curve(red)[image[i + 2]];
    }
    return image;
}

Bytes saturated(Bytes image, long amount) {
    Saturateconst(image.data(), kW, kH, amount, 1);
    return image;
}

class BlendTablePresets : public ::testing::Test {
protected:
    Bytes photo = noise(kW, kH, 21), m1 = noise(kW, kH, 22), m2 = noise(kW, kH, 23);
    Bytes mixed = table_set([](int map, int a, int b) { return (map + 1) * a + (b ^ 0x5A); });

    Bytes run(decltype(&StyleXuanCai) preset, Bytes tables) {
        Bytes image = photo;
        preset(image.data(), m1.data(), m2.data(), kW, kH, tables.data());
        return image;
    }
    int entry(int map, int a, int b) const { return mixed[kMapStart[map] + a * 256 + b]; }
};

TEST_F(BlendTablePresets, StepsUseTheMapsInOrderWithTheirOperands) {
    Bytes xuancai = photo, fanhuang = saturated(photo, -30), niupizhi = saturated(photo, -35);
    const int warmth[3] = {8, 8, 48}, tint[3] = {100, 10, 14};
    for (std::size_t k = 0; k < photo.size(); ++k) {
        const int c = k % 4;
        if (c == 3) continue;
        const int x = entry(1, entry(0, xuancai[k], xuancai[k]), m1[k]);
        xuancai[k] = qtzq::store_curve(0)[entry(2, x, m2[k])];
        const int f = entry(1, entry(0, qtzq::store_curve(24)[fanhuang[k]], m1[k]), m2[k]);
        fanhuang[k] = entry(2, f, warmth[c]);
        niupizhi[k] = entry(2, entry(1, entry(0, niupizhi[k], tint[c]), m1[k]), m2[k]);
    }
    EXPECT_EQ(run(StyleXuanCai, mixed), xuancai);
    EXPECT_EQ(run(StyleFanHuang, mixed), fanhuang);
    EXPECT_EQ(run(StyleNiuPiZhi, mixed), niupizhi);
}

TEST_F(BlendTablePresets, RouguangCurvesItsMaterialInPlaceAndIndexesByIt) {
    Bytes image = photo, material = m1;
    StyleRouguang(image.data(), material.data(), kW, kH, mixed.data());
    EXPECT_EQ(material, curved(m1, 10, 10, 10));  // written back, alpha kept
    Bytes expected = photo;
    for (std::size_t i = 0; i < photo.size(); i += 4)
        for (int c = 0; c < 3; ++c) expected[i + c] = entry(2 - c, material[i + c], photo[i + c]);
    EXPECT_EQ(image, expected);
}

}  // namespace
