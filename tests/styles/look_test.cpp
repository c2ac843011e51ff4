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

#include "pixel/blend_kernels.h"
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
// (one treating its channels differently), and span steps that mix
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
    [](Look& look, std::mt19937&) { look.span(qtzq::saturation(-35, 1)); },
    [](Look& look, std::mt19937&) {
        look.span(qtzq::each_pixel([](unsigned char* px) { qtzq::color_ex(px, kColour, 0.8); }));
    },
    [](Look& look, std::mt19937& random) {
        look.span(qtzq::each_pixel_with(int(random() % 3), [](unsigned char* px, const unsigned char* m) {
            qtzq::soft_light_ex(px, m, m[3] / 255.0);
        }));
    },
};

Bytes looked(const Look& look, int w, int h, const std::vector<Bytes>& materials, bool fast) {
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
                ASSERT_EQ(looked(look, w, h, materials, true), looked(look, w, h, materials, false))
                    << w << "x" << h << " steps " << steps;
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
