// Colour balance: worked examples, the fixed variants' curves against their
// samples, lightness preservation and invariants.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include <qtzqeffect/pixel.h>

#include "pixel/colour_balance_curves.h"
#include "pixel/colour_balance_variants.h"
#include "support/images.h"

using qtzq_test::Bytes;

namespace {

using Balance = void (*)(bool, _TONE_REGION, int, int, int, unsigned char*, int, int);

Bytes balanced(Balance fn, bool keep, int region, int r, int g, int b, Bytes image) {
    fn(keep, _TONE_REGION(region), r, g, b, image.data(), int(image.size() / 4), 1);
    return image;
}

Bytes balanced(bool keep, int region, int r, int g, int b, Bytes image) {
    return balanced(CColorBalance, keep, region, r, g, b, std::move(image));
}

Bytes pixel(int b, int g, int r) {
    return {static_cast<unsigned char>(b), static_cast<unsigned char>(g),
            static_cast<unsigned char>(r), 99};
}

// Entries 0, 16, ..., 240, 255 of a curve; the identity gives 0, 16, ... too.
std::vector<int> samples(const unsigned char* curve) {
    std::vector<int> values;
    for (int s = 0; s < 16; ++s) values.push_back(curve[16 * s]);
    values.push_back(curve[255]);
    return values;
}

TEST(ColourBalance, MidtoneAndHighlightShifts) {
    // Midtones: 127 + trunc(100 * 0.667f) = 193; M[0] = M[254] = 0, and past
    // 254 the weight turns slightly negative. Negative shifts pull down.
    EXPECT_EQ(balanced(false, 1, 100, 0, 0, pixel(0, 0, 127)), pixel(0, 0, 193));
    EXPECT_EQ(balanced(false, 1, 100, 0, 0, pixel(0, 0, 0)), pixel(0, 0, 0));
    EXPECT_EQ(balanced(false, 1, 100, 0, 0, pixel(0, 0, 254)), pixel(0, 0, 254));
    EXPECT_EQ(balanced(false, 1, 100, 0, 0, pixel(0, 0, 255)), pixel(0, 0, 254));
    EXPECT_EQ(balanced(false, 1, -100, 100, 100, pixel(127, 127, 127)), pixel(193, 193, 61));
    // Highlights: H[0] = float(1.075) - 1, just above 0.075, so black gains 7.
    EXPECT_EQ(balanced(false, 2, 100, 0, 100, pixel(0, 0, 0)), pixel(7, 0, 7));
    EXPECT_EQ(balanced(false, 2, 0, 100, 0, pixel(200, 200, 200)), pixel(200, 255, 200));
}

TEST(ColourBalance, NoShiftNoRegionNoPixelsChangeNothing) {
    const Bytes image = qtzq_test::noise(64, 16, 5);
    for (int region = 0; region < 3; ++region)
        EXPECT_EQ(balanced(false, region, 0, 0, 0, image), image) << "region " << region;
    for (int region : {-1, 3, 1000})
        EXPECT_EQ(balanced(false, region, 50, -50, 80, image), image) << "region " << region;
    // Greys keep their level when lightness is preserved.
    EXPECT_EQ(balanced(true, 1, 0, 0, 0, qtzq_test::grey_ramp(31)), qtzq_test::grey_ramp(31));
    // rows x per_row pixels exactly; counts below 1 and null do nothing.
    Bytes copy = image;
    CColorBalance(false, TONE_REGION_MIDTONES, 90, 90, 90, copy.data(), 0, 64);
    CColorBalance(false, TONE_REGION_MIDTONES, 90, 90, 90, copy.data(), 64, -1);
    CColorBalance(true, TONE_REGION_MIDTONES, 90, 90, 90, nullptr, 8, 8);
    EXPECT_EQ(copy, image);
    CColorBalance(false, TONE_REGION_MIDTONES, 90, 90, 90, copy.data(), 3, 5);
    EXPECT_NE(Bytes(copy.begin(), copy.begin() + 60), Bytes(image.begin(), image.begin() + 60));
    EXPECT_EQ(Bytes(copy.begin() + 60, copy.end()), Bytes(image.begin() + 60, image.end()));
}

TEST(ColourBalance, PreservedLightnessIsTheIncomingOneInIntegerHls) {
    const Bytes image = qtzq_test::noise(64, 64, 8);
    const Bytes shifted = balanced(false, 0, 40, -30, 60, image);
    const Bytes kept = balanced(true, 0, 40, -30, 60, image);
    for (std::size_t p = 0; p < image.size(); p += 4) {
        int h, l, s, incoming_h, incoming_l, incoming_s, r, g, b;
        RGBtoIntHLS(shifted[p + 2], shifted[p + 1], shifted[p], &h, &l, &s);
        RGBtoIntHLS(image[p + 2], image[p + 1], image[p], &incoming_h, &incoming_l, &incoming_s);
        intHLStoRGB(h, incoming_l, s, &r, &g, &b);
        ASSERT_EQ(Bytes(kept.begin() + p, kept.begin() + p + 4),
                  (Bytes{static_cast<unsigned char>(b), static_cast<unsigned char>(g),
                         static_cast<unsigned char>(r), image[p + 3]}))
            << p;
    }
}

TEST(ColourBalanceVariants, CurvesMatchTheirSamples) {
    const unsigned char(*curves)[256] = qtzq::kColourBalanceVariantCurves;
    const std::vector<int> identity = samples(qtzq::colour_balance_curves({0, 0, 0, 0}).red);
    // Shadows 13, 0, 21.
    EXPECT_EQ(samples(curves[0]), (std::vector<int>{0, 18, 35, 53, 70, 87, 104, 120, 136, 152,
                                                    168, 183, 198, 213, 227, 241, 255}));
    EXPECT_EQ(samples(curves[1]), identity);
    EXPECT_EQ(samples(curves[2]), (std::vector<int>{0, 19, 38, 56, 74, 92, 109, 125, 142, 157,
                                                    173, 187, 202, 216, 229, 242, 255}));
    // Midtones 2, 0, 8.
    EXPECT_EQ(samples(curves[3]), (std::vector<int>{0, 16, 32, 48, 65, 81, 97, 113, 129, 145,
                                                    161, 177, 192, 208, 224, 240, 255}));
    EXPECT_EQ(samples(curves[4]), identity);
    EXPECT_EQ(samples(curves[5]), (std::vector<int>{0, 17, 34, 51, 68, 84, 101, 117, 133, 149,
                                                    164, 180, 195, 211, 226, 241, 255}));
    // Highlights 0, 0, -13.
    EXPECT_EQ(samples(curves[6]), identity);
    EXPECT_EQ(samples(curves[7]), identity);
    EXPECT_EQ(samples(curves[8]), (std::vector<int>{0, 14, 29, 43, 58, 73, 88, 104, 120, 136,
                                                    152, 169, 186, 203, 221, 239, 255}));
}

TEST(ColourBalanceVariants, OwnSettingsWhateverTheArgumentsAndDoubleHlsLightness) {
    const Balance variants[] = {CColorBalance_0_13_0_21, CColorBalance_1_2_0_8,
                                CColorBalance_2_0_0_s13};
    const Bytes image = qtzq_test::noise(64, 16, 9);
    for (int v = 0; v < 3; ++v) {
        const qtzq::ColourBalanceSetting& s = qtzq::kColourBalanceVariants[v];
        const Bytes shifted = balanced(false, s.region, s.red, s.green, s.blue, image);
        EXPECT_EQ(balanced(variants[v], false, 2, 90, -90, 40, image), shifted) << v;
        const Bytes kept = balanced(variants[v], true, 7, 0, 0, 0, image);
        for (std::size_t p = 0; p < image.size(); p += 4) {
            double h, l, sat, incoming_l;
            RGBtoHLS(shifted[p + 2], shifted[p + 1], shifted[p], &h, &l, &sat);
            RGBtoHLS_L(image[p + 2], image[p + 1], image[p], &incoming_l);
            const std::uint32_t packed = HLStoRGB(h, incoming_l, sat);
            ASSERT_EQ(Bytes(kept.begin() + p, kept.begin() + p + 4),
                      (Bytes{static_cast<unsigned char>(packed), static_cast<unsigned char>(packed >> 8),
                             static_cast<unsigned char>(packed >> 16), image[p + 3]}))
                << v << " " << p;
        }
    }
}

}  // namespace
