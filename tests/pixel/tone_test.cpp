// Tone adjustments: the brightness/contrast and gamma tables, table look-ups,
// grey, fixed additions, noise and channel copies.
#include <gtest/gtest.h>

#include <cstdlib>
#include <numeric>
#include <vector>

#include <qtzqeffect/pixel.h>

#include "pixel/tone_tables.h"
#include "support/images.h"

using qtzq_test::Bytes;

namespace {

// Light's table, read back by running Light over a grey ramp (alpha kept).
Bytes light_table(long brightness, long contrast) {
    Bytes ramp = qtzq_test::grey_ramp(7);
    Light(ramp.data(), 256, 1, brightness, contrast);
    Bytes table(256);
    for (int i = 0; i < 256; ++i) {
        table[i] = ramp[4 * i];
        EXPECT_EQ(Bytes(&ramp[4 * i], &ramp[4 * i] + 4), (Bytes{table[i], table[i], table[i], 7}));
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
    EXPECT_EQ(light_table(0, -100), Bytes(256, 128));
    const Bytes steep = light_table(0, 100);
    EXPECT_EQ((Bytes{steep[0], steep[64], steep[128], steep[191], steep[192]}),
              (Bytes{0, 0, 128, 254, 255}));
    // Brightness 200 shifts by 200 rather than saturating: 255 only from 55.
    const Bytes bright = light_table(200, 0);
    EXPECT_EQ((Bytes{bright[0], bright[54], bright[55]}), (Bytes{200, 254, 255}));
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
    for (long b : {-90L, 40L}) {
        LightNew(pixel, table, 1, 1, b, -35);
        const Bytes light = light_table(b, -35);
        for (int i = 0; i < 256; ++i) ASSERT_EQ(table[i], light[128 + (i & 127)]);
    }
    EXPECT_EQ(Bytes(pixel, pixel + 4), (Bytes{1, 2, 3, 4}));
    LightNew(nullptr, table, 1, 1, 0, 0);
    EXPECT_EQ(table[0], light_table(40, -35)[128]);
}

TEST(BrightContrastSaturation, LightThenHslSaturation) {
    const Bytes photo = qtzq_test::noise(9, 4, 5);
    Bytes combined = photo, steps = photo, neutral = photo;
    BrightContrastSaturation(combined.data(), 9, 4, 12, 30, -25);
    BrightContrastSaturation(neutral.data(), 9, 4, 0, 0, 0);
    Light(steps.data(), 9, 4, 12, 30);
    Saturateconst(steps.data(), 9, 4, -25, 1);
    EXPECT_EQ(combined, steps);
    EXPECT_EQ(neutral, photo);
}

TEST(GammaTable, KnownResultsAndRefusals) {
    Bytes ramp = qtzq_test::grey_ramp();
    GammaRGB(ramp.data(), 256, 1, 1.0f, 1.0f, 1.0f);
    EXPECT_EQ(ramp, qtzq_test::grey_ramp());
    unsigned char pixel[4] = {64, 64, 64, 64};
    GammaRGB(pixel, 1, 1, 2.0f, 1.0f, 1.0f);
    GammaRGB(pixel, 1, 1, 2.0f, 0.0f, 2.0f);  // refused as a whole
    GammaRGB(nullptr, 1, 1, 2.0f, 2.0f, 2.0f);
    EXPECT_EQ(Bytes(pixel, pixel + 4), (Bytes{64, 64, 127, 64}));
    GammaRGB(pixel, 1, 1, 1e-30f, 1e30f, 1.0f);  // extreme but valid
}

// 1/2 and 1/4 have exact powers, so the tables are integer quotients; and
// 255^e / (255^e / 255) need not come back to exactly 255.
TEST(GammaTable, ExactPowersAndTheTopEntry) {
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

TEST(Lut, ChannelsThroughTheirTablesAlphaOnlyWhenGiven) {
    unsigned char inverse[256], half[256], zero[256] = {0};
    for (int i = 0; i < 256; ++i) inverse[i] = static_cast<unsigned char>(255 - i), half[i] = i / 2;
    unsigned char pixel[4] = {10, 20, 30, 40};
    Lut(pixel, inverse, 1, 1);                         // 245, 235, 225, 40
    LutEx(pixel, 1, 1, zero, half, inverse, nullptr);  // 10, 117, 0, 40
    LutEx(pixel, 1, 1, half, half, half, half);
    LutEx(nullptr, 1, 1, half, half, half, half);
    EXPECT_EQ(Bytes(pixel, pixel + 4), (Bytes{5, 58, 0, 20}));
}

TEST(PixelTone, ShiftAndGrey) {
    unsigned char pixel[4] = {255, 0, 250, 9}, grey = 0;
    ShiftRGBEx(pixel, 10, 7, 1);
    EXPECT_EQ(Bytes(pixel, pixel + 4), (Bytes{255, 7, 255, 9}));
    unsigned char red[4] = {0, 0, 255, 9};
    SetGrayScaleExNew(red, &grey);
    EXPECT_EQ(grey, 76);
    SetGrayScaleEx(red);
    SetGrayScaleEx(pixel);
    EXPECT_EQ(Bytes(red, red + 4), (Bytes{76, 76, 76, 9}));
    EXPECT_EQ(pixel[0], (306 * 255 + 601 * 7 + 117 * 255) >> 10);
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

TEST(ChannelCopy, PackAndSplit) {
    unsigned char source[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    unsigned char packed[7] = {0, 0, 0, 0, 0, 0, 99};
    tfbitCopy(source, packed, 2);
    tfbitCopy(source + 4, packed, 0);
    EXPECT_EQ(Bytes(packed, packed + 7), (Bytes{1, 2, 3, 5, 6, 7, 99}));
    SpliteToR(source, 1, 2);
    SpliteToR(source, 0, 1);
    EXPECT_EQ(Bytes(source, source + 8), (Bytes{3, 3, 3, 4, 7, 7, 7, 8}));
}

}  // namespace
