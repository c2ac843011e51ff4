// Grain, tint, impression, vivid-colour, auto-level and old-photo presets
// against their recipes recomputed through the exported primitives.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include <qtzqeffect/qtzqeffect.h>

#include "styles/curve_store.h"
#include "support/clock_seeded.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

constexpr int kW = 16, kH = 16;
using Recipe = std::function<void(Bytes&)>;

template <typename Step>
void each_pixel(Bytes& image, Step step) {
    for (std::size_t i = 0; i < image.size(); i += 4) step(&image[i]);
}

void store_curves(unsigned char* px, int red, int green, int blue) {
    px[0] = qtzq::store_curve(blue)[px[0]];
    px[1] = qtzq::store_curve(green)[px[1]];
    px[2] = qtzq::store_curve(red)[px[2]];
}

unsigned char kHeiBaiTint[4] = {56, 47, 47, 0}, kCinnamonTint[4] = {185, 118, 93, 0};
unsigned char kImpressionLight[4] = {198, 233, 219, 0}, kHdrWash[4] = {58, 2, 14, 0};
unsigned char kOldPhotoBrown[4] = {83, 28, 7, 0};

void lomo_hdr(Bytes& image, int red, int green, int blue) {
    AutoColorLevel(image.data(), kW, kH, false);  // keeps the colours
    each_pixel(image, [&](unsigned char* px) { store_curves(px, red, green, blue); });
    CSharp().useEffect(image.data(), kW, kH, 3, 0.5f);
}

// The old photo's recipe; `red_curve_first` swaps the two curve steps.
void old_photo(Bytes& image, Bytes& material, bool red_curve_first) {
    CColorBalance(false, TONE_REGION_SHADOWS, -11, -20, 10, image.data(), kW, kH);
    CColorBalance(false, TONE_REGION_MIDTONES, 14, 26, 41, image.data(), kW, kH);
    CColorBalance(false, TONE_REGION_HIGHLIGHTS, 15, 26, 45, image.data(), kW, kH);
    _POINT all[] = {{0, 0}, {83, 72}, {163, 184}, {255, 255}};
    _POINT red[] = {{0, 0}, {80, 89}, {162, 182}, {255, 255}};
    SFCurve curve;
    curve.GetCurveByPoints(all, 4, CHANNEL_RGB);
    curve.GetCurveByPoints(red, 4, CHANNEL_RED);
    curve.ApplyCurve(red_curve_first ? CHANNEL_RED : CHANNEL_RGB, image.data(), kW, kH);
    curve.ApplyCurve(red_curve_first ? CHANNEL_RGB : CHANNEL_RED, image.data(), kW, kH);
    for (std::size_t i = 0; i < image.size(); i += 4) {
        ExclusionEx(&image[i], kOldPhotoBrown, 1.0);
        ScreenEx(&image[i], &material[i], 0.800000011920929);
    }
}

TEST(TonePresets, FollowTheirRecipes) {
    const std::pair<void (*)(unsigned char*, int, int), Recipe> cases[] = {
        {StyleHeiBai, [](Bytes& im) { each_pixel(im, [](unsigned char* px) {
             ColorEx(px, kHeiBaiTint, 0.8);
             store_curves(px, 39, 40, 41);
         }); }},
        {StyleCinnamon, [](Bytes& im) { each_pixel(im, [](unsigned char* px) {
             SoftLightEx2(px, px, 0.5);
             PinLightEx8(px, kCinnamonTint, 0.8f);
         }); }},
        {StyleElegant, [](Bytes& im) { each_pixel(im, [](unsigned char* px) {
             unsigned char grey;
             SetGrayScaleExNew(px, &grey);
             store_curves(px, 42, 43, 44);
             ImageSoftLightExNew(px, grey, 1.0);
         }); }},
        {StyleImpression, [](Bytes& im) {
             each_pixel(im, [](unsigned char* px) { ColorBurnEx(px, kImpressionLight, 0.2); });
             Saturateconst(im.data(), kW, kH, 15, 1);
             each_pixel(im, [](unsigned char* px) { store_curves(px, 48, 49, 50); });
         }},
        {StyleBaoColor, [](Bytes& im) { ABaoColor(im.data(), kW, kH, 20); }},
        {[](unsigned char* im, int w, int h) { ABaoColor(im, w, h, 40); }, [](Bytes& im) {
             Saturateconst(im.data(), kW, kH, 40);
             each_pixel(im, [](unsigned char* px) {
                 unsigned char self[4] = {px[0], px[1], px[2], 0};
                 OverlayEx(px, self, 0.4);
             });
         }},
        {StyleLomoHDR, [](Bytes& im) { lomo_hdr(im, 30, 31, 32); }},
        {StyleLomoHDRJinDian, [](Bytes& im) {
             StyleLomoHDR(im.data(), kW, kH);  // equal curves 45..47 in their own slots
             each_pixel(im, [](unsigned char* px) { ExclusionEx(px, kHdrWash, 1.0); });
         }},
    };
    for (const auto& [preset, recipe] : cases) {
        const Bytes photo = noise(kW, kH, 5);
        Bytes out = photo, expected = photo;
        preset(out.data(), kW, kH);
        recipe(expected);
        EXPECT_EQ(out, expected);
    }
}

TEST(TonePresets, MaterialPresetsFollowTheirRecipes) {
    Bytes photo = noise(kW, kH, 6), material = noise(kW, kH, 7);
    Bytes out = photo, expected = photo, swapped = photo;
    StyleOldPhoto(out.data(), material.data(), kW, kH);
    old_photo(expected, material, false);
    old_photo(swapped, material, true);
    EXPECT_EQ(out, expected);
    EXPECT_NE(out, swapped);  // the red curve acts on the first curve's output

    out = expected = photo;
    StyleRiguanghaian(out.data(), material.data(), kW, kH);
    for (std::size_t i = 0; i < expected.size(); i += 4) {
        store_curves(&expected[i], 27, 28, 29);
        ScreenEx(&expected[i], &material[i], 1.0);
    }
    EXPECT_EQ(out, expected);
}

TEST(TonePresets, WorkedExamples) {
    Bytes black = {0, 0, 0, 17}, white = {255, 255, 255, 0};
    StyleImpression(black.data(), 1, 1);
    StyleImpression(white.data(), 1, 1);
    EXPECT_EQ(black, (Bytes{66, 43, 24, 17}));    // curves 48..50 at 0
    EXPECT_EQ(white, (Bytes{236, 236, 224, 0}));  // and at 255
    Bytes extremes = {0, 0, 0, 5, 255, 255, 255, 6};
    ABaoColor(extremes.data(), 2, 1, 100);
    EXPECT_EQ(extremes, (Bytes{0, 0, 0, 5, 255, 255, 255, 6}));
    // Retro on black: red 0, green 20, blue 63 before grain of -10..9.
    const Bytes retro = [] {
        Bytes image = qtzq_test::solid(kW, kH, 0, 0, 0, 40);
        StyleRetro(image.data(), kW, kH);
        return image;
    }();
    for (std::size_t i = 0; i < retro.size(); i += 4) {
        ASSERT_LE(retro[i + 2], 9);
        ASSERT_TRUE(retro[i + 1] >= 10 && retro[i + 1] <= 29);
        ASSERT_TRUE(retro[i] >= 53 && retro[i] <= 72);
    }
}

TEST(TonePresets, VividStrengthIsClampedToZeroToHundred) {
    const auto vivid = [photo = noise(kW, kH, 8)](int strength) {
        Bytes image = photo;
        ABaoColor(image.data(), kW, kH, strength);
        return image;
    };
    EXPECT_EQ(vivid(0), noise(kW, kH, 8));
    EXPECT_EQ(vivid(-30), vivid(0));
    EXPECT_EQ(vivid(250), vivid(100));
}

TEST(GrainPresets, FollowTheirRecipesWithTheClockSeed) {
    const std::pair<void (*)(unsigned char*, int, int), Recipe> cases[] = {
        {StyleRetro, [](Bytes& im) { each_pixel(im, [](unsigned char* px) {
             store_curves(px, 51, 52, 53);
             NoiseExNew(px, 20);
         }); }},
        {StyleLiuJin, [](Bytes& im) {
             Saturateconst(im.data(), kW, kH, -100, 1);
             each_pixel(im, [](unsigned char* px) {
                 ShiftRGBEx(px, 40, 25, 0);
                 NoiseEx(px, 20);
             });
         }},
    };
    for (const auto& [preset, recipe] : cases) {
        const Bytes photo = noise(kW, kH, 9);
        const auto results = qtzq_test::within_one_second(
            [&, preset = preset] {
                Bytes image = photo;
                preset(image.data(), kW, kH);
                return image;
            },
            [&, recipe = recipe] {
                Bytes image = photo;
                recipe(image);
                return image;
            });
        ASSERT_TRUE(results);
        EXPECT_EQ(results->first, results->second);

        // An image without rows still reseeds.
        const auto draws = qtzq_test::within_one_second(
            [&, preset = preset] {
                Bytes image = photo;
                preset(image.data(), kW, 0);
                return std::rand();
            },
            [] { return std::rand(); });
        ASSERT_TRUE(draws);
        EXPECT_EQ(draws->first, draws->second);
    }
}

}  // namespace
