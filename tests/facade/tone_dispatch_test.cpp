// Dispatch of the grain, tint, impression, vivid-colour, levels, old-photo
// and zoom-blur ids, and the two-step time tunnel.
#include <gtest/gtest.h>

#include <memory>

#include <qtzqeffect/qtzqeffect.h>

#include "support/clock_seeded.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

constexpr int kW = 7, kH = 5;

// Every id with its direct call; the sharpening HDR looks set alpha to 255.
struct Route {
    int id;
    void (*single)(unsigned char*, int, int);
    void (*material)(unsigned char*, unsigned char*, int, int);
    bool opaque_result;
};
const Route kRoutes[] = {
    {1019, StyleElegant, nullptr, false},     {1021, StyleRetro, nullptr, false},
    {1022, StyleCinnamon, nullptr, false},    {1027, StyleImpression, nullptr, false},
    {1028, StyleBaoColor, nullptr, false},    {1033, StyleLomoHDRJinDian, nullptr, true},
    {1034, StyleHeiBai, nullptr, false},      {1035, StyleLomoHDR, nullptr, true},
    {1039, StyleLiuJin, nullptr, false},      {1026, nullptr, StyleOldPhoto, false},
    {1102, nullptr, StyleRiguanghaian, false}, {1104, nullptr, StyleYiZhou, false}};

// The id through the facade (first) and the direct call (second), in one
// second for the presets that seed rand() from the clock.
std::pair<Bytes, Bytes> both_ways(const Route& r, const Bytes& photo, Bytes material, int w,
                                  int h) {
    const auto results = qtzq_test::within_one_second(
        [&] {
            Bytes image = photo;
            const int result = r.single ? Qtzqeffect().effect(r.id, image.data(), w, h)
                                        : Qtzqeffect().effect(r.id, image.data(),
                                                              material.data(), w, h);
            EXPECT_EQ(result, 1);
            return image;
        },
        [&] {
            Bytes image = photo;
            if (r.single) r.single(image.data(), w, h);
            else r.material(image.data(), material.data(), w, h);
            return image;
        });
    EXPECT_TRUE(results);
    return results.value_or(std::pair<Bytes, Bytes>{});
}

TEST(ToneDispatch, EveryIdGivesItsPresetsBytesAndAlpha) {
    const Bytes photo = noise(kW, kH, 81), material = noise(kW, kH, 82);
    for (const Route& r : kRoutes) {
        const auto [via_facade, direct] = both_ways(r, photo, material, kW, kH);
        EXPECT_EQ(via_facade, direct) << r.id;
        EXPECT_NE(via_facade, photo) << r.id;
        for (std::size_t i = 3; i < photo.size(); i += 4)
            ASSERT_EQ(via_facade[i], r.opaque_result ? 255 : photo[i]) << r.id;
    }
}

TEST(ToneDispatch, EmptyAndOnePixelImagesAreSafe) {
    const Bytes pixel = {10, 20, 30, 40}, material = {50, 60, 70, 80};
    for (const Route& r : kRoutes) {
        EXPECT_EQ(both_ways(r, pixel, material, 0, 0).first, pixel) << r.id;
        const auto [via_facade, direct] = both_ways(r, pixel, material, 1, 1);
        EXPECT_EQ(via_facade, direct) << r.id;
    }
}

TEST(TimeTunnel, BothStepsAreTheirPresets) {
    Bytes mask = noise(240, 240, 84), via_facade = noise(kW, kH, 85), direct = via_facade;
    Qtzqeffect effects;
    const std::unique_ptr<unsigned char[]> tunnel(
        effects.effectShiGuangSuiDao(via_facade.data(), mask.data(), kW, kH));
    const std::unique_ptr<unsigned char[]> expected(
        StyleChuanYue1(direct.data(), mask.data(), kW, kH));
    EXPECT_EQ(via_facade, direct);
    EXPECT_TRUE(std::equal(tunnel.get(), tunnel.get() + direct.size(), expected.get()));

    EXPECT_EQ(effects.effectShiGuangSuiDaoResult(via_facade.data(), tunnel.get(), kW, kH), 1);
    StyleChuanYue3(direct.data(), expected.get(), kW, kH);
    EXPECT_EQ(via_facade, direct);
}

}  // namespace
