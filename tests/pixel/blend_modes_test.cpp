// Blend modes: known results, and exhaustive checks over every
// (base, blend) byte pair of the identities that tie the modes together.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

#include <qtzqeffect/pixel.h>

#include "support/images.h"

using qtzq_test::Bytes;

namespace {

using Mode = std::function<void(unsigned char*, unsigned char*)>;
using Table = std::vector<int>;  // result for (a, b) at index a * 256 + b

constexpr unsigned char kBaseAlpha = 17, kBlendAlpha = 99;

// Runs `mode` on one pixel per (a, b) pair, pixel a * 256 + b: channel k of
// the base is base_channel(a, k), of the blend blend_channel(b, k). Checks
// that alpha and the blend pixel are untouched; returns the base pixels.
Bytes run_pairs(const Mode& mode, unsigned char (*base_channel)(int, int),
                unsigned char (*blend_channel)(int, int)) {
    Bytes base(65536 * 4, kBaseAlpha), blend(65536 * 4, kBlendAlpha);
    for (int i = 0; i < 65536; ++i)
        for (int k = 0; k < 3; ++k) {
            base[4 * i + k] = base_channel(i >> 8, k);
            blend[4 * i + k] = blend_channel(i & 255, k);
        }
    const Bytes blend_before = blend;
    for (int i = 0; i < 65536; ++i) mode(&base[4 * i], &blend[4 * i]);
    EXPECT_EQ(blend, blend_before);
    bool alpha_kept = true;
    for (int i = 0; i < 65536; ++i) alpha_kept = alpha_kept && base[4 * i + 3] == kBaseAlpha;
    EXPECT_TRUE(alpha_kept);
    return base;
}

unsigned char same(int level, int) { return static_cast<unsigned char>(level); }
// Three different bytes per level, so that channel mix-ups show.
unsigned char spread_base(int level, int k) {
    return static_cast<unsigned char>(k == 0 ? level : k == 1 ? 255 - level : level ^ 0x5A);
}
unsigned char spread_blend(int level, int k) {
    return static_cast<unsigned char>(k == 0 ? level : k == 1 ? level ^ 0x33 : 255 - level);
}

// The per-channel table of a mode, from grey pixels: checks that all three
// channels agree.
Table grey_table(const Mode& mode) {
    const Bytes grey = run_pairs(mode, same, same);
    Table table(65536);
    for (int i = 0; i < 65536; ++i) {
        table[i] = grey[4 * i];
        EXPECT_TRUE(grey[4 * i + 1] == table[i] && grey[4 * i + 2] == table[i]) << i;
    }
    return table;
}

// grey_table of a mode whose channels are independent, also checking that
// with three different bytes per channel each channel gives the table entry
// of its own (base, blend) pair.
Table channel_table(const Mode& mode) {
    const Table table = grey_table(mode);
    const Bytes spread = run_pairs(mode, spread_base, spread_blend);
    for (int i = 0; i < 65536; ++i)
        for (int k = 0; k < 3; ++k) {
            const int pair = spread_base(i >> 8, k) * 256 + spread_blend(i & 255, k);
            EXPECT_EQ(spread[4 * i + k], table[pair]) << "channel " << k;
        }
    return table;
}

template <typename Fn>
Table table_of(Fn fn) {
    Table table(65536);
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) table[a * 256 + b] = fn(a, b);
    return table;
}

// The pointer overload of OverlayEx, and the constant-colour one fed from
// the blend pixel.
constexpr auto overlay_pixel =
    static_cast<void (*)(unsigned char*, unsigned char*, double)>(OverlayEx);
void overlay_colour(unsigned char* base, unsigned char* blend, double opacity) {
    OverlayEx(base, blend[2], blend[1], blend[0], opacity);
}

template <typename Fn>
Mode with(Fn fn, double opacity) {
    return [=](unsigned char* base, unsigned char* blend) { fn(base, blend, opacity); };
}

// One pixel (base, blend, base, ...) through a mode: B, G, R of the result.
Bytes blend_one(const Mode& mode, Bytes base, Bytes blend) {
    base.push_back(0);
    blend.push_back(0);
    mode(base.data(), blend.data());
    return Bytes(base.begin(), base.begin() + 3);
}

TEST(BlendExamples, KnownResults) {
    const auto one = blend_one;
    EXPECT_EQ(one(with(NormalEx, 0.0), {1, 2, 3}, {9, 8, 7}), (Bytes{1, 2, 3}));
    EXPECT_EQ(one(with(NormalEx, 1.0), {1, 2, 3}, {9, 8, 7}), (Bytes{9, 8, 7}));
    EXPECT_EQ(one(with(NormalEx, 0.5), {0, 255, 1}, {255, 0, 0}), (Bytes{127, 127, 0}));
    EXPECT_EQ(one(with(MultipleEx, 1.0), {255, 0, 0}, {255, 0, 0})[0], 254);
    EXPECT_EQ(one(with(ImageAddEx, 1.0), {255, 0, 0}, {128, 0, 0})[0], 128);
    EXPECT_EQ(one(with(ScreenEx, 1.0), {255, 15, 0}, {255, 17, 0}), (Bytes{255, 32, 0}));
    EXPECT_EQ(one(ImageColorBurnEx, {90, 255, 255}, {0, 1, 200}), (Bytes{0, 255, 255}));
    EXPECT_EQ(one(with(ColorBurnEx, 0.5), {200, 101, 0}, {0, 0, 0}), (Bytes{100, 50, 0}));
    EXPECT_EQ(one(PinLightEx, {100, 100, 100}, {200, 40, 100}), (Bytes{145, 80, 100}));
    EXPECT_EQ(one(with(ImageExclusionEx2, 0.3), {0, 0, 0}, {255, 0, 0})[0], 127);
    EXPECT_EQ(one(with(ExclusionEx, 1.0), {0, 0, 0}, {255, 0, 0})[0], 2);
    EXPECT_EQ(one(with(HardlightEx_2, 0.0), {100, 100, 100}, {100, 100, 100}), (Bytes{89, 50, 50}));
    // Light branch: 0.5 * 189 + 0.5 * 100; dark branch, opacity before the
    // shift: (20200 * 0.5) >> 8 = 39, plus 50.5.
    EXPECT_EQ(one(with(HardlightEx, 0.5), {100, 101, 0}, {200, 100, 0}), (Bytes{144, 89, 0}));
    // m = 78, s = 255 - (155 * 155 >> 8) = 162: (78 + 200 + (200 * 84 >> 8)) >> 1.
    EXPECT_EQ(one(with(SoftLightEx2, 0.2), {200, 0, 0}, {100, 0, 0})[0], 171);
    // The base is scaled: a' = 100, m = 39, s = 162, 39 + (100 * 123 >> 8).
    EXPECT_EQ(one(with(CompositeColorEx, 0.5), {200, 0, 0}, {100, 0, 0})[0], 87);
}

TEST(BlendMixing, OpacityZeroKeepsTheBaseOpacityOneGivesTheEffect) {
    const Table base = table_of([](int a, int) { return a; });
    const auto pin2 = [](unsigned char* p, unsigned char* m, double op) {
        PinLightEx2(p, m, float(op));
    };
    for (const Mode& mode :
         {with(NormalEx, 0.0), with(ImageNormalEx, 0.0), with(overlay_pixel, 0.0),
          with(overlay_colour, 0.0), with(SoftLightEx, 0.0), with(ColorBurnEx, 0.0),
          with(ColorEx, 0.0), with(ColorHSBEx, 0.0), with(MultipleEx, 0.0), with(HardlightEx, 0.0), with(ScreenEx, 0.0), with(pin2, 0.0)})
        EXPECT_EQ(channel_table(mode), base);
    EXPECT_EQ(channel_table(with(NormalEx, 1.0)), table_of([](int, int b) { return b; }));
    EXPECT_EQ(channel_table(with(overlay_colour, 0.6000000238418579)),
              channel_table(with(overlay_pixel, 0.6000000238418579)));
    // Without mixing, colour burn at opacity 1 is the plain burn (blend 0 too).
    EXPECT_EQ(channel_table(with(ColorBurnEx, 1.0)), channel_table(ImageColorBurnEx));
    // 0.00392156 is just below 1/255: never above the exact product, at most 1 under.
    const Table multiply = channel_table(with(MultipleEx, 1.0));
    for (int i = 0; i < 65536; ++i) {
        const int under = (i >> 8) * (i & 255) / 255 - multiply[i];
        ASSERT_TRUE(under == 0 || under == 1) << i;
    }
}

TEST(BlendPrescaled, OpacityZeroActsWithBlendZero) {
    const auto zero_blend = [](Mode mode) {
        return channel_table([mode](unsigned char* p, unsigned char*) {
            unsigned char black[4] = {0, 0, 0, kBlendAlpha};
            mode(p, black);
        });
    };
    for (auto fn : {ImageAddEx, ImageScreenEx, ImageLightenEx, ImageExclusionEx, ExclusionEx,
                    ImageSoftLightEx})
        EXPECT_EQ(channel_table(with(fn, 0.0)), zero_blend(with(fn, 1.0)));
    // One constant blend value (taken from the blend's blue byte here).
    const auto soft_new = [](unsigned char* p, unsigned char* m, double op) {
        ImageSoftLightExNew(p, m[0], op);
    };
    EXPECT_EQ(grey_table(with(soft_new, 0.7)), channel_table(with(ImageSoftLightEx, 0.7)));
}

TEST(BlendExclusion, TwoPassesOfTheSingleExclusion) {
    for (double op : {0.6, 1.0, 1.7}) {
        const double first = std::min(op, 1.0);
        const Mode twice = [first](unsigned char* p, unsigned char* m) {
            ImageExclusionEx(p, m, first);
            ImageExclusionEx(p, m, first);
        };
        EXPECT_EQ(channel_table(with(ExclusionEx, op)), channel_table(twice)) << op;
    }
    // The halved variant ignores its opacity.
    const Table single = channel_table(with(ImageExclusionEx, 1.0));
    const Table halved = table_of([&single](int a, int b) { return single[a * 256 + (b >> 1)]; });
    for (double op : {0.0, 1.0}) EXPECT_EQ(channel_table(with(ImageExclusionEx2, op)), halved);
}

TEST(BlendOwnOpacity, SoftLightHalfIgnoresItAndPinLightFormsAgree) {
    EXPECT_EQ(channel_table(with(SoftLightEx2, 0.0)), channel_table(with(SoftLightEx2, 1.0)));
    const auto pin = [](decltype(PinLightEx2) fn, float op) {
        return [fn, op](unsigned char* p, unsigned char* m) { fn(p, m, op); };
    };
    EXPECT_EQ(channel_table(pin(PinLightEx2, 1.0f)), channel_table(PinLightEx));
    EXPECT_EQ(channel_table(pin(PinLightEx2, 0.37f)), channel_table(pin(PinLightEx8, 0.37f)));
}

TEST(BlendHardLight, HalfVariantAveragesAndBlueIgnoresOpacity) {
    const Table full = channel_table(with(HardlightEx, 1.0));
    const Bytes half = run_pairs(with(HardlightEx_2, 1.0), same, same);
    const Bytes dark = run_pairs(with(HardlightEx_2, 0.0), same, same);
    for (int i = 0; i < 65536; ++i) {
        const auto avg = static_cast<unsigned char>(((i >> 8) + full[i]) >> 1);
        // The light branch has no opacity, nor has blue's dark branch.
        const auto gr = static_cast<unsigned char>((i & 255) > 128 ? avg : (i >> 8) >> 1);
        ASSERT_EQ(Bytes(&half[4 * i], &half[4 * i] + 3), Bytes(3, avg));
        ASSERT_EQ(Bytes(&dark[4 * i], &dark[4 * i] + 3), (Bytes{avg, gr, gr}));
    }
}

// A grey blend has saturation 0: the rebuilt colour is the base's lightness
// (HSL form 2) or brightness (HSB).
TEST(BlendColour, GreyBlendTakesTheBaseLightness) {
    const auto grey = [](int, int) -> unsigned char { return 60; };
    const Bytes hsl = run_pairs(with(ColorEx, 1.0), spread_base, grey);
    for (int i = 0; i < 65536; i += 256) {
        const unsigned char* p = &hsl[4 * i];
        const int a = i >> 8, top = std::max({a, 255 - a, a ^ 0x5A});
        const int mid = (top + std::min({a, 255 - a, a ^ 0x5A}) + 1) >> 1;
        ASSERT_EQ(Bytes(p, p + 3), Bytes(3, mid)) << a;
    }
    EXPECT_EQ(blend_one(with(ColorHSBEx, 1.0), {200, 200, 200}, {0, 0, 255}), (Bytes{0, 0, 200}));
    EXPECT_EQ(blend_one(with(ColorHSBEx, 1.0), {10, 40, 30}, {60, 60, 60}), Bytes(3, 40));
}

// Outside 0..1 the arithmetic runs on: negative results give 0 through the
// unsigned conversion, results past 255 keep their low 8 bits; extreme and
// NaN opacities still give bytes.
TEST(BlendOutOfRange, OpacityFollowsTheArithmetic) {
    EXPECT_EQ(blend_one(with(NormalEx, -1.0), {0, 100, 50}, {100, 0, 0}), (Bytes{0, 200, 100}));
    EXPECT_EQ(blend_one(with(NormalEx, 2.0), {0, 0, 0}, {200, 100, 127}), (Bytes{144, 200, 254}));
    EXPECT_EQ(blend_one(with(ImageLightenEx, 1.5), {0, 0, 0}, {200, 100, 171}),
              (Bytes{44, 150, 0}));
    unsigned char p[4] = {1, 128, 255, 0}, m[4] = {255, 77, 0, 0};
    const double inf = std::numeric_limits<double>::infinity();
    for (double op : {-1e300, -inf, inf, 1e300, std::nan("")}) {
        for (auto fn : {NormalEx, MultipleEx, ImageAddEx, ScreenEx, ImageScreenEx, ImageLightenEx,
                        ImageDarkenEx, ImageExclusionEx, ExclusionEx, ColorBurnEx, HardlightEx,
                        HardlightEx_2, SoftLightEx, ImageSoftLightEx, CompositeColorEx, ColorEx,
                        ColorHSBEx, overlay_pixel})
            fn(p, m, op);
        ImageSoftLightExNew(p, m[1], op);
        PinLightEx2(p, m, float(op));
    }
}

}  // namespace
