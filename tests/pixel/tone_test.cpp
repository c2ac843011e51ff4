// Tone adjustments: the brightness/contrast and gamma tables, grey, fixed
// additions, noise and the red-channel copy.
#include <gtest/gtest.h>

#include <cstdlib>
#include <numeric>
#include <vector>

#include <qtzqeffect/pixel.h>

#include "pixel/colour_rows.h"
#include "pixel/tone_tables.h"

using qtzq_test::Bytes;
using qtzq_test::bytes_at;

namespace {

// Light's table, read back by running Light over a grey ramp (alpha kept).
Bytes light_table(long brightness, long contrast) {
    Bytes ramp = qtzq_test::grey_ramp(7);
    Light(ramp.data(), 256, 1, brightness, contrast);
    Bytes table(256);
    for (int i = 0; i < 256; ++i) {
        table[i] = ramp[4 * i];
        EXPECT_EQ(bytes_at(&ramp[4 * i]), (Bytes{table[i], table[i], table[i], 7}));
    }
    return table;
}

// Exact rational reference for slopes (contrast + 100) / 100 that a float
// holds exactly: floor((b + 128) + (i - 128)(c + 100) / 100 + 1/2), clamped.
int exact_light_entry(int b, int c, int i) {
    const long long twice = 200LL * (b + 128) + 2LL * (i - 128) * (c + 100) + 100;
    const long long v = twice >= 0 ? twice / 200 : -1;
    return v < 0 ? 0 : v > 255 ? 255 : int(v);
}

TEST(LightTable, MatchesExactArithmeticWhereTheSlopeIsExact) {
    for (int c : {-100, -50, 0, 100, 300})
        for (int b : {-300, -50, 0, 60, 200}) {
            const Bytes table = light_table(b, c);
            for (int i = 0; i < 256; ++i) ASSERT_EQ(table[i], exact_light_entry(b, c, i)) << b << c;
        }
}

TEST(LightTable, KnownResults) {
    Bytes identity(256);
    std::iota(identity.begin(), identity.end(), 0);
    EXPECT_EQ(light_table(0, 0), identity);
    // On .5 boundaries where double precision would land on the other side.
    EXPECT_EQ(light_table(0, 10)[13], 2);
    EXPECT_EQ(light_table(0, 113)[78], 21);
    // Extreme parameters clamp instead of overflowing.
    EXPECT_EQ(light_table(2147483647L, 0), Bytes(256, 255));
    EXPECT_EQ(light_table(-2147483647L - 1, 0), Bytes(256, 0));
}

TEST(LightNewTable, RepeatsLightsUpperHalfAndLeavesPixelsAlone) {
    unsigned char pixel[4] = {1, 2, 3, 4}, table[256];
    LightNew(pixel, table, 0, 0, 0, 0);
    EXPECT_EQ((Bytes{table[0], table[127], table[128], table[255]}), (Bytes{128, 255, 128, 255}));
    LightNew(pixel, table, 1, 1, 40, -35);
    LightNew(nullptr, table, 1, 1, 0, 0);  // no pixels: the table stays too
    const Bytes light = light_table(40, -35);
    for (int i = 0; i < 256; ++i) ASSERT_EQ(table[i], light[128 + (i & 127)]);
    EXPECT_EQ(bytes_at(pixel), (Bytes{1, 2, 3, 4}));
}

TEST(GammaTable, RefusalsExactPowersAndTheTopEntry) {
    unsigned char pixel[4] = {64, 64, 64, 64};
    GammaRGB(pixel, 1, 1, 2.0f, 1.0f, 1.0f);
    GammaRGB(pixel, 1, 1, 2.0f, 0.0f, 2.0f);  // refused as a whole
    GammaRGB(nullptr, 1, 1, 2.0f, 2.0f, 2.0f);
    EXPECT_EQ(bytes_at(pixel), (Bytes{64, 64, 127, 64}));
    GammaRGB(pixel, 1, 1, 1e-30f, 1e30f, 1.0f);  // extreme but valid
    // 1/2 and 1/4 have exact powers, so the tables are integer quotients;
    // 255^e / (255^e / 255) need not come back to exactly 255.
    unsigned char square[256], fourth[256], table[256];
    qtzq::gamma_table(0.5f, square);
    qtzq::gamma_table(0.25f, fourth);
    for (long long i = 0; i < 256; ++i) {
        ASSERT_EQ(square[i], i * i / 255);
        ASSERT_EQ(fourth[i], i * i * i * i / (255LL * 255 * 255));
    }
    qtzq::gamma_table(2.2f, table);
    EXPECT_EQ(table[255], 254);
}

TEST(PixelTone, ShiftGreyAndRedCopy) {
    unsigned char pixel[4] = {255, 0, 250, 9}, red[4] = {0, 0, 255, 9}, grey = 0;
    ShiftRGBEx(pixel, 10, 7, 1);
    EXPECT_EQ(bytes_at(pixel), (Bytes{255, 7, 255, 9}));
    SetGrayScaleExNew(red, &grey);
    EXPECT_EQ(grey, 76);
    SetGrayScaleEx(red);
    SetGrayScaleEx(pixel);
    EXPECT_EQ(bytes_at(red), (Bytes{76, 76, 76, 9}));
    EXPECT_EQ(pixel[0], (306 * 255 + 601 * 7 + 117 * 255) >> 10);
    unsigned char two[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    SpliteToR(two, 1, 2);
    EXPECT_EQ(bytes_at(two, 8), (Bytes{3, 3, 3, 4, 7, 7, 7, 8}));
}

// With a huge amount each channel goes to 0 or 255 by the sign of
// rand() - 2^30, which shows the order blue, green, red; amount 0 changes
// nothing but still takes three values.
TEST(Noise, ChannelsTakeRandValuesInBlueGreenRedOrder) {
    std::srand(7);
    std::vector<int> draws;
    for (int i = 0; i < 31; ++i) draws.push_back(std::rand());
    for (auto noise : {NoiseEx, NoiseExNew}) {
        std::srand(7);
        for (int i = 0; i < 10; ++i) {
            unsigned char pixel[4] = {128, 128, 128, 5};
            noise(pixel, i == 9 ? 0 : 100000);
            for (int k = 0; k < 3; ++k)
                ASSERT_EQ(pixel[k], i == 9 ? 128 : draws[3 * i + k] < (1 << 30) ? 0 : 255);
            ASSERT_EQ(pixel[3], 5);
        }
        EXPECT_EQ(std::rand(), draws[30]);
    }
    unsigned char pixel[4] = {0, 128, 255, 3};
    for (long amount : {2147483647L, -2147483647L - 1}) NoiseEx(pixel, amount);
    EXPECT_EQ(pixel[3], 3);
}

}  // namespace
