// Saturation: the fixed-point matrix, its construction from an amount, and
// the HSL and YUV routes of the five-argument form.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include <qtzqeffect/pixel.h>

#include "pixel/saturation_kernels.h"
#include "pixel/colour_rows.h"

using qtzq_test::Bytes;
using qtzq_test::bytes_at;

namespace {

constexpr int kW = 11, kH = 6;

TEST(SaturationMatrix, BuiltFromTheAmount) {
    const qtzq::SaturationMatrix plus50 = qtzq::saturation_matrix(50);  // a = 150, s = 2.5
    const int* m = plus50.m;
    EXPECT_EQ((std::vector<int>{m[0], m[1], m[2], m[3], m[4], m[8]}),
              (std::vector<int>{521, -234, -31, -118, 406, 608}));
    const qtzq::SaturationMatrix minus50 = qtzq::saturation_matrix(-50);  // counted once
    EXPECT_EQ((std::vector<int>{minus50.m[0], minus50.m[1]}), (std::vector<int>{167, 78}));
}

TEST(SaturationMatrix, RowsReadTheIncomingValuesAndClamp) {
    int swap_red_blue[9] = {0, 0, 256, 0, 256, 0, 256, 0, 0};
    unsigned char pixel[4] = {10, 20, 30, 40};
    SaturateconstMatrix(pixel, swap_red_blue);
    EXPECT_EQ(bytes_at(pixel), (Bytes{30, 20, 10, 40}));
    // Red -10 clamps to 0, green 480 to 255, blue 383 * 20 >> 8 = 29.
    int extremes[9] = {-256, 0, 0, 0, 0, 4096, 0, 383, 0};
    SaturateconstMatrix(pixel, extremes);
    EXPECT_EQ(bytes_at(pixel), (Bytes{29, 255, 0, 40}));
}

TEST(MatrixSaturation, ZeroKeepsMinus100MakesGrey) {
    const Bytes photo = qtzq_test::noise(kW, kH, 11);
    Bytes image = photo;
    Saturateconst(image.data(), kW, kH, 0L);
    EXPECT_EQ(image, photo);
    Saturateconst(image.data(), kW, kH, -100L);
    for (std::size_t i = 0; i < image.size(); i += 4)
        ASSERT_TRUE(image[i] == image[i + 1] && image[i + 1] == image[i + 2] &&
                    image[i + 3] == photo[i + 3]);
    unsigned char red[4] = {0, 0, 255, 0};
    Saturateconst(red, 1, 1, -100L);
    EXPECT_EQ(bytes_at(red), (Bytes{78, 78, 78, 0}));  // 79 * 255 >> 8
}

// Both routes convert each pixel there and back: amount 0 through HSL keeps
// what the exported conversions give back; -100 through YUV (chroma 128)
// leaves greys. Other modes, and empty images, change nothing.
TEST(ColourSpaceSaturation, RoutesThroughHslAndYuv) {
    const Bytes photo = qtzq_test::noise(kW, kH, 12);
    Bytes hsl = photo, yuv = photo, other = photo;
    Saturateconst(hsl.data(), kW, kH, 0L, 1L);
    Saturateconst(yuv.data(), kW, kH, -100L, 2L);
    for (std::size_t i = 0; i < photo.size(); i += 4) {
        unsigned char h, s, l, r, g, b;
        RGBtoHSL(photo[i + 2], photo[i + 1], photo[i], &h, &s, &l);
        HSLtoRGB(h, s, l, &r, &g, &b);
        ASSERT_EQ(bytes_at(&hsl[i]), (Bytes{b, g, r, photo[i + 3]}));
        ASSERT_TRUE(yuv[i] == yuv[i + 1] && yuv[i + 1] == yuv[i + 2] && yuv[i + 3] == photo[i + 3]);
    }
    for (long mode : {0L, 3L}) Saturateconst(other.data(), kW, kH, 80L, mode);
    Saturateconst(other.data(), kW, 0, 80L, 1L);
    EXPECT_EQ(other, photo);
    for (long amount : {2147483647L, -2147483647L - 1})  // extremes clamp
        for (long mode : {1L, 2L}) Saturateconst(other.data(), kW, kH, amount, mode);
}

TEST(ColourSpaceSaturation, Tables) {
    unsigned char table[256];
    qtzq::hsl_shift_table(-30, table);
    EXPECT_EQ((Bytes{table[0], table[30], table[31], table[255]}), (Bytes{0, 0, 1, 225}));
    // (i - 128)(a + 100) / 100 + 128.5, rounded down and clamped: ties go up.
    qtzq::chroma_scale_table(-50, table);  // 127 -> 127.5 + 0.5
    EXPECT_EQ((Bytes{table[0], table[127], table[129], table[255]}), (Bytes{64, 128, 129, 192}));
    qtzq::chroma_scale_table(150, table);  // (0 - 128) * 2.5 < 0, (255 - 128) * 2.5 > 255
    EXPECT_EQ((Bytes{table[0], table[128], table[255]}), (Bytes{0, 128, 255}));
}

}  // namespace
