// Colour balance: worked examples, invariants and the fixed variants'
// settings.
#include <gtest/gtest.h>

#include <qtzqeffect/pixel.h>

#include "pixel/colour_balance_curves.h"
#include "pixel/colour_rows.h"

using qtzq_test::Bytes;
using qtzq_test::px;

namespace {

using Balance = void (*)(bool, _TONE_REGION, int, int, int, unsigned char*, int, int);

Bytes balanced(Balance fn, bool keep, int region, int r, int g, int b, Bytes image) {
    fn(keep, _TONE_REGION(region), r, g, b, image.data(), int(image.size() / 4), 1);
    return image;
}

Bytes balanced(bool keep, int region, int r, int g, int b, Bytes image) {
    return balanced(CColorBalance, keep, region, r, g, b, std::move(image));
}

Bytes pixel(int b, int g, int r) { return px(b, g, r, 99); }

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

// The variants shift by their own settings and ignore the region and
// amounts they are given.
TEST(ColourBalanceVariants, OwnSettingsWhateverTheArguments) {
    const Balance variants[] = {CColorBalance_0_13_0_21, CColorBalance_1_2_0_8,
                                CColorBalance_2_0_0_s13};
    const Bytes image = qtzq_test::noise(64, 16, 9);
    for (int v = 0; v < 3; ++v) {
        const qtzq::ColourBalanceSetting& s = qtzq::kColourBalanceVariants[v];
        EXPECT_EQ(balanced(variants[v], false, 2, 90, -90, 40, image),
                  balanced(false, s.region, s.red, s.green, s.blue, image)) << v;
        EXPECT_EQ(balanced(variants[v], true, 7, 0, 0, 0, image),
                  balanced(variants[v], true, 0, -5, 5, 99, image)) << v;
    }
}

}  // namespace
