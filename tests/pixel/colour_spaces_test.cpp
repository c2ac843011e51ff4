// Colour-space conversions: the exact bytes of known colours, the quirks
// that are part of the results, and round-trip bounds over every colour.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>

#include <qtzqeffect/pixel.h>

namespace {

using Triple = std::array<int, 3>;
using ByteConversion = void (*)(unsigned char, unsigned char, unsigned char, unsigned char*,
                                unsigned char*, unsigned char*);

Triple convert(ByteConversion fn, int a, int b, int c) {
    unsigned char x, y, z;
    fn(static_cast<unsigned char>(a), static_cast<unsigned char>(b),
       static_cast<unsigned char>(c), &x, &y, &z);
    return {x, y, z};
}

// Largest channel error of a round trip over every 3rd level of each channel
// (86^3 colours, extremes included), skipping colours `skip` rejects.
int worst_round_trip(const std::function<Triple(int, int, int)>& trip,
                     const std::function<bool(int, int, int)>& skip = nullptr) {
    int worst = 0;
    for (int r = 0; r < 256; r += 3)
        for (int g = 0; g < 256; g += 3)
            for (int b = 0; b < 256; b += 3) {
                if (skip && skip(r, g, b)) continue;
                const Triple back = trip(r, g, b);
                worst = std::max({worst, std::abs(back[0] - r), std::abs(back[1] - g),
                                  std::abs(back[2] - b)});
            }
    return worst;
}

int worst_byte_round_trip(ByteConversion to, ByteConversion from,
                          const std::function<bool(int, int, int)>& skip = nullptr) {
    return worst_round_trip(
        [=](int r, int g, int b) {
            const Triple t = convert(to, r, g, b);
            return convert(from, t[0], t[1], t[2]);
        },
        skip);
}

TEST(LinearSpaces, KnownColoursAndRoundTripBounds) {
    EXPECT_EQ(convert(RGBtoYUV, 255, 255, 255), (Triple{255, 128, 128}));
    EXPECT_EQ(convert(RGBtoYIQ, 255, 0, 0), (Triple{76, 255, 181}));  // I = 280 clamps
    EXPECT_EQ(convert(XYZtoRGB, 242, 255, 255), (Triple{253, 255, 254}));
    // Y and X terms summed in float, the Z term added in double: a float
    // total would give red 97.
    EXPECT_EQ(convert(XYZtoRGB, 62, 45, 64)[0], 96);
    EXPECT_LE(worst_byte_round_trip(RGBtoYUV, YUVtoRGB), 2);
    EXPECT_LE(worst_byte_round_trip(RGBtoXYZ, XYZtoRGB), 4);
    // YIQ's I and Q clamp for strongly coloured inputs; bound the others.
    EXPECT_LE(worst_byte_round_trip(RGBtoYIQ, YIQtoRGB,
                                    [](int r, int g, int b) {
                                        const Triple c = convert(RGBtoYIQ, r, g, b);
                                        return c[1] == 0 || c[1] == 255 || c[2] == 0 || c[2] == 255;
                                    }),
              3);
}

TEST(ByteHsl, GreysCarryHue170InBothForms) {
    for (int v = 0; v < 256; ++v)
        for (ByteConversion to_hsl : {RGBtoHSL, RGBtoHSL2})
            ASSERT_EQ(convert(to_hsl, v, v, v), (Triple{170, 0, v}));
}

// Form 1's + 1 makes a full saturation of 255 wrap to 0.
TEST(ByteHsl, FormOneSaturationWrapsAndRoundTrips) {
    EXPECT_EQ(convert(RGBtoHSL, 255, 0, 0), (Triple{0, 0, 128}));
    EXPECT_EQ(convert(RGBtoHSL, 0, 0, 200), (Triple{170, 0, 100}));
    // Green maximum: dR = 43, dB = trunc(100 * 42.5 / 200 + 0.5) = 21.
    EXPECT_EQ(convert(RGBtoHSL, 0, 200, 100), (Triple{43 + 85 - 21, 0, 100}));
    const auto wraps = [](int r, int g, int b) {
        return convert(RGBtoHSL, r, g, b)[1] == 0 && !(r == g && g == b);
    };
    EXPECT_LE(worst_byte_round_trip(RGBtoHSL, HSLtoRGB, wraps), 6);
    EXPECT_LE(worst_byte_round_trip(RGBtoHSL, HSLtoRGB_L, wraps), 6);
}

TEST(ByteHsl, FormTwoHueScalesDiffer) {
    EXPECT_EQ(convert(RGBtoHSL2, 0, 0, 255), (Triple{170, 255, 128}));  // -86 wraps
    EXPECT_EQ(convert(RGBtoHSL2, 0, 255, 0), (Triple{85, 255, 128}));
    // m1 = 256 - 255.0022, and the red hue 0.6666575 falls just short of
    // 0.666666: red comes back as 1.
    EXPECT_EQ(convert(HSLtoRGB2, 85, 255, 128), (Triple{1, 255, 0}));
    EXPECT_LE(worst_byte_round_trip(RGBtoHSL2, HSLtoRGB2), 15);
}

Triple hsb_round_trip(int r, int g, int b) {
    float h, s, v;
    unsigned char R, G, B;
    RGBtoHSB(r, g, b, h, s, v);
    HSBtoRGB(h, s, v, R, G, B);
    return {R, G, B};
}

TEST(Hsb, RedIs360HueZeroIsGreyAndTheTopSextantDividesInDouble) {
    float h, s, v;
    RGBtoHSB(255, 0, 0, h, s, v);
    EXPECT_EQ((std::array<float, 3>{h, s, v}), (std::array<float, 3>{360.0f, 1.0f, 1.0f}));
    RGBtoHSB(90, 90, 90, h, s, v);
    EXPECT_EQ(h + s, 0.0f);
    unsigned char r, g, b;
    HSBtoRGB(0.0f, 1.0f, 0.5f, r, g, b);
    EXPECT_EQ((Triple{r, g, b}), (Triple{127, 127, 127}));
    EXPECT_EQ(hsb_round_trip(14, 7, 9), (Triple{14, 7, 8}));  // 9 in float
    EXPECT_EQ(worst_round_trip(hsb_round_trip), 1);
    // Non-finite inputs still give bytes.
    const float inf = std::numeric_limits<float>::infinity();
    HSBtoRGB(std::nanf(""), std::nanf(""), std::nanf(""), r, g, b);
    HSBtoRGB(200.0f, -inf, inf, r, g, b);
    EXPECT_EQ(b, 255);
}

TEST(DoubleHls, ScalesAndPacking) {
    double h, l, s, only_l;
    RGBtoHLS(0, 0, 255, &h, &l, &s);
    EXPECT_EQ(h, 4 * 0.166994);
    EXPECT_EQ(l, 255 * 0.0019647);
    RGBtoHLS(255, 0, 128, &h, &l, &s);
    RGBtoHLS_L(255, 0, 128, &only_l);
    EXPECT_NEAR(h, 1 - 0.166994 * 128 / 255, 1e-12);  // a negative hue moved up a turn
    EXPECT_EQ(only_l, l);
    EXPECT_EQ(HLStoRGB(0.0, 0.5, 1.0), 0xFFFF0000u);  // red in bits 16-23
    EXPECT_EQ(HLStoRGB(2.0 / 3.0, 0.5, 1.0), 0xFF0000FFu);
    EXPECT_EQ(HLStoRGB(0.5, 1e300, 1.0) >> 24, 255u);
    EXPECT_LE(worst_round_trip([](int r, int g, int b) {
                  double hh, ll, ss;
                  RGBtoHLS(r, g, b, &hh, &ll, &ss);
                  const unsigned p = HLStoRGB(hh, ll, ss);
                  return Triple{int(p >> 16 & 255), int(p >> 8 & 255), int(p & 255)};
              }),
              2);
}

Triple int_hls(int r, int g, int b) {
    int h, l, s;
    RGBtoIntHLS(r, g, b, &h, &l, &s);
    return {h, l, s};
}

TEST(IntegerHls, KnownValuesRoundTripAndOutOfRangeArguments) {
    EXPECT_EQ(int_hls(0, 255, 0), (Triple{85, 127, 255}));  // L = 127.75 truncated
    EXPECT_EQ(int_hls(255, 0, 100), (Triple{239, 127, 255}));  // 26 - 42 wraps by 255
    EXPECT_EQ(int_hls(7, 7, 7)[0], 170);
    EXPECT_EQ(int_hls(-5, 300, 2147483647), int_hls(0, 255, 255));
    constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
    // intHueToRGB(m1, m2, hue): levels and hues outside 0..255 are used as
    // given; a result past 32 bits keeps its low 32 bits.
    const std::array<int, 4> hue_cases[] = {
        {0, 100, 20, 47},            // (100 * 20 + 21) * 2 / 85
        {0, 100, 150, 47},           // (100 * (170 - 150) + 21) * 2 / 85
        {179, 418, 306, 418},        // 306 - 255 = 51: m2, unclamped
        {-100, 300, 10, -6},         // 8042 / 85 = 94, + m1
        {300, -100, 160, 207},       // -7958 / 85 truncates to -93
        {5, 9, -300, 2},             // -300 + 255 = -45: the rising ramp, negative
        {5, 9, 600, 5},              // 600 - 255 = 345: m1
        {kMin, kMax, 20, -126322568},  // exact, the product needs 64 bits
        {kMin, kMax, 42, 2096954620},
        {kMin, kMax, kMin, 2147483643},  // low 32 bits of the exact result
    };
    for (const auto& c : hue_cases)
        EXPECT_EQ(intHueToRGB(c[0], c[1], c[2]), c[3]) << c[0] << " " << c[1] << " " << c[2];
    // intHLStoRGB(H, L, S) with arguments outside 0..255, used as given.
    const std::array<int, 6> rgb_cases[] = {
        {0, 100, 300, 218, 0, 0},    // m2 = 218, m1 = -18 (a negative level gives 0)
        {0, 300, 0, 300, 300, 300},  // S = 0: L itself
        {0, 100, -50, 80, 120, 120},  // m2 = 80 below m1 = 120
        {600, 128, 255, 1, 1, 1},    // one wrap only: every hue lands past 169
        {kMax, kMax, kMax, 255, 255, 255},
        {kMin, kMin, kMin, 255, 255, 255},
    };
    for (const auto& c : rgb_cases) {
        int r, g, b;
        intHLStoRGB(c[0], c[1], c[2], &r, &g, &b);
        EXPECT_EQ((Triple{r, g, b}), (Triple{c[3], c[4], c[5]}))
            << c[0] << " " << c[1] << " " << c[2];
    }
    EXPECT_LE(worst_round_trip([](int rr, int gg, int bb) {
                  const Triple t = int_hls(rr, gg, bb);
                  int r, g, b;
                  intHLStoRGB(t[0], t[1], t[2], &r, &g, &b);
                  return Triple{r, g, b};
              }),
              7);
}

}  // namespace
