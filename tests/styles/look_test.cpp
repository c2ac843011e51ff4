// The look engine: recipes folded into table passes and swept in strips give
// the bytes of their steps run one after the other over the whole photo (the
// reference, forced), for random recipes, sizes and materials.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "facade/effect_catalogue.h"
#include "pixel/blend_kernels.h"
#include "pixel/soft_light_span.h"
#include "styles/blend_tables.h"
#include "simd/vector_unit.h"
#include "styles/look.h"
#include "styles/look_steps.h"
#include "support/images.h"

using namespace qtzq_test;
using qtzq::ChannelMaps;
using qtzq::Look;

namespace {

const unsigned char kColour[4] = {83, 200, 7, 31};

ChannelMaps random_maps(std::mt19937& random) {
    ChannelMaps maps;
    for (auto& channel : maps.map)
        for (auto& entry : channel) entry = static_cast<unsigned char>(random());
    return maps;
}

// One step of every kind the engine knows, each with real blend kernels:
// channel blends against a constant, the pixel itself and a material
// (one treating its channels differently, one with a span kernel), and span steps that mix
// channels or walk the materials.
using AddStep = std::function<void(Look&, std::mt19937&)>;
const AddStep kSteps[] = {
    [](Look& look, std::mt19937& random) { look.maps(random_maps(random)); },
    [](Look& look, std::mt19937&) {
        look.blend_constant(kColour, [](unsigned char* px, const unsigned char* c) {
            qtzq::color_burn_ex(px, c, 0.3);
        });
    },
    [](Look& look, std::mt19937&) {
        look.blend_constant(kColour, [](unsigned char* px, const unsigned char* c) {
            qtzq::pin_light_ex_mixed(px, c, 0.8f);
        });
    },
    [](Look& look, std::mt19937&) {
        look.blend_self([](unsigned char* px, const unsigned char* self) { qtzq::soft_light_ex2(px, self); });
    },
    [](Look& look, std::mt19937& random) {
        look.blend_material(int(random() % 3), [](unsigned char* px, const unsigned char* m) {
            qtzq::composite_color_ex(px, m, 0.6000000238418579);
        });
    },
    [](Look& look, std::mt19937& random) {
        look.blend_material(int(random() % 3), [](unsigned char* px, const unsigned char* m) {
            qtzq::hardlight_ex_2(px, m, 0.7);
        });
    },
    [](Look& look, std::mt19937& random) {
        look.blend_material(
            int(random() % 3), [](unsigned char* px, const unsigned char* m) { qtzq::soft_light_ex(px, m, 1.0); },
            qtzq::soft_light_span);
    },
    [](Look& look, std::mt19937&) { look.span(qtzq::saturation_step(-35, 1)); },
    [](Look& look, std::mt19937&) {
        look.span(qtzq::each_pixel([](unsigned char* px) { qtzq::color_ex(px, kColour, 0.8); }));
    },
    [](Look& look, std::mt19937& random) {
        look.blend_material_by_alpha(int(random() % 3), [](unsigned char* px, const unsigned char* m) {
            qtzq::soft_light_ex(px, m, m[3] / 255.0);
        });
    },
    [](Look& look, std::mt19937& random) {
        look.span(qtzq::each_pixel_with(int(random() % 3), [](unsigned char* px, const unsigned char* m) {
            qtzq::soft_light_ex(px, m, m[3] / 255.0);
        }));
    },
};

Bytes looked(Look look, int w, int h, const std::vector<Bytes>& materials, bool fast,
             std::size_t pair_tables_from = 0) {
    look.pair_tables_from(pair_tables_from);
    Bytes image = noise(w, h, std::uint32_t(w * 71 + h));
    qtzq::ScopedVectorUnitLimit limit(fast ? qtzq::VectorUnit::kAvx2 : qtzq::VectorUnit::kScalar);
    look.run(image.data(), w, h, {materials[0].data(), materials[1].data(), materials[2].data()});
    return image;
}

TEST(Look, FoldedSweepEqualsTheStepsOneAfterTheOther) {
    std::mt19937 random(2024);
    // Up to 67 x 67: more pixels than one strip holds.
    const int kSizes[] = {1, 2, 3, 7, 30, 67};
    for (int w : kSizes)
        for (int h : kSizes) {
            std::vector<Bytes> materials;
            for (std::uint32_t k = 0; k < 3; ++k) materials.push_back(noise(w, h, 977 * k + 5));
            for (int recipe = 0; recipe < 3; ++recipe) {
                Look look;
                std::string steps;
                for (int n = 1 + int(random() % 6); n > 0; --n) {
                    const std::size_t pick = random() % std::size(kSteps);
                    kSteps[pick](look, random);
                    steps += std::to_string(pick) + " ";
                }
                const Bytes reference = looked(look, w, h, materials, false);
                // Material blends as tables, and called pixel by pixel.
                ASSERT_EQ(looked(look, w, h, materials, true), reference) << w << "x" << h << " steps " << steps;
                ASSERT_EQ(looked(look, w, h, materials, true, Look::kPairTablesFrom), reference)
                    << w << "x" << h << " steps " << steps << " (no tables)";
            }
        }
}

TEST(Look, MapsFoldInOrder) {
    std::mt19937 random(7);
    const ChannelMaps first = random_maps(random), second = random_maps(random);
    const ChannelMaps folded = first.then(second);
    for (int c = 0; c < 3; ++c)
        for (int v = 0; v < 256; ++v) ASSERT_EQ(folded.map[c][v], second.map[c][first.map[c][v]]);
    const ChannelMaps read_off = qtzq::channel_maps_of([&](unsigned char* px) { folded.apply(px); });
    EXPECT_EQ(0, std::memcmp(read_off.map, folded.map, sizeof folded.map));
}

}  // namespace

namespace {

// Every catalogue look that blends materials, on a photo large enough for
// its material blends to become tables, against its steps one after the
// other: a blend declared a channel blend that is not one shows here.
TEST(Look, EveryMaterialLookOnALargePhotoEqualsItsSteps) {
    constexpr int kSide = 512;  // kSide * kSide == Look::kPairTablesFrom
    static_assert(std::size_t(kSide) * kSide == Look::kPairTablesFrom, "tables on");
    const Bytes photo = noise(kSide, kSide, 3), m2 = noise(kSide, kSide, 5), m3 = noise(kSide, kSide, 6),
                tables = noise(qtzq::kBlendTableSetSize, 1, 7);
    // Three quarters of the first material share one alpha, enough for a
    // table of blends keyed by it; the rest keep theirs.
    Bytes m1 = noise(kSide, kSide, 4);
    for (std::size_t k = 0; k < m1.size() / 4; ++k)
        if (k % 4 != 0) m1[4 * k + 3] = 200;
    const auto run = [&](const std::function<void(unsigned char*, unsigned char**)>& preset, bool fast) {
        Bytes image = photo, a = m1, b = m2, c = m3, t = tables;
        unsigned char* materials[] = {a.data(), b.data(), c.data(), t.data()};
        qtzq::ScopedVectorUnitLimit limit(fast ? qtzq::VectorUnit::kAvx2 : qtzq::VectorUnit::kScalar);
        preset(image.data(), materials);
        return image;
    };
    std::vector<std::pair<int, std::function<void(unsigned char*, unsigned char**)>>> presets;
    for (const auto& e : qtzq::kOneMaterialEffects)
        if (e.id != 1104) presets.push_back({e.id, [e](unsigned char* p, unsigned char** m) { e.preset(p, m[0], kSide, kSide); }});
    for (const auto& e : qtzq::kTwoMaterialEffects)
        presets.push_back({e.id, [e](unsigned char* p, unsigned char** m) { e.preset(p, m[0], m[1], kSide, kSide); }});
    for (const auto& e : qtzq::kThreeMaterialEffects)
        presets.push_back({e.id, [e](unsigned char* p, unsigned char** m) { e.preset(p, m[0], m[1], m[2], kSide, kSide); }});
    for (const auto& e : qtzq::kBlendTableEffects)
        presets.push_back({e.id, [e](unsigned char* p, unsigned char** m) { e.preset(p, m[0], m[1], kSide, kSide, m[3]); }});
    for (const auto& [id, preset] : presets) EXPECT_TRUE(run(preset, true) == run(preset, false)) << id;
}

}  // namespace
