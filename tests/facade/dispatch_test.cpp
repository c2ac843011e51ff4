// The effect facade: every known id changes only the photo's colours, every
// overload leaves every buffer alone for the ids it does not know, and the
// sample utility. Which preset each id reaches is pinned by the golden
// digests, whose catalogue is independent of the library's.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include <qtzqeffect/qtzqeffect.h>

#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

// A photo, three materials and a table set (more than a set's 196618 bytes).
// Buffers hold at least one pixel, so that a 0 x 0 call has bytes to spoil.
struct Inputs {
    int w, h;
    Bytes photo, m1, m2, m3, tables = noise(256, 193, 75);
    Inputs(int width, int height, std::uint32_t seed = 71)
        : w(width), h(height), photo(image(seed)), m1(image(seed + 1)), m2(image(seed + 2)),
          m3(image(seed + 3)) {}
    Bytes image(std::uint32_t seed) const { return noise(std::max(w, 1), std::max(h, 1), seed); }
    bool operator==(const Inputs& o) const {
        return photo == o.photo && m1 == o.m1 && m2 == o.m2 && m3 == o.m3 && tables == o.tables;
    }
};

// The seven overloads of Qtzqeffect::effect.
using Overload = int (*)(int id, Inputs& in);
int image_only(int id, Inputs& in) {
    return Qtzqeffect().effect(id, in.photo.data(), in.w, in.h);
}
int one_material(int id, Inputs& in) {
    return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.w, in.h);
}
int two_materials(int id, Inputs& in) {
    return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h);
}
int three_materials(int id, Inputs& in) {
    return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.m3.data(),
                               in.w, in.h);
}
int tables(int id, Inputs& in) {
    return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h,
                               in.tables.data(), 99);
}
int empty_one(int id, Inputs& in) {
    return Qtzqeffect().effect(id, in.photo.data(), in.w, in.h, in.m1.data(), 0);
}
int empty_two(int id, Inputs& in) {
    return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.w, in.h, in.m2.data(), 0);
}

// Every id with the overload that knows it; the two empty overloads know none.
const std::pair<Overload, std::vector<int>> kKnown[] = {
    {image_only, {1019, 1020, 1021, 1022, 1023, 1027, 1028, 1033, 1034, 1035, 1039, 1040, 1101}},
    {one_material, {1026, 1030, 1042, 1043, 1044, 1045, 1046, 1047, 1102, 1104}},
    {two_materials, {1018, 1041}},
    {three_materials, {1048}},
    {tables, {1031, 1032, 1038}}};

bool known(Overload overload, int id) {
    for (const auto& [o, ids] : kKnown)
        if (o == overload && std::find(ids.begin(), ids.end(), id) != ids.end()) return true;
    return false;
}

TEST(Dispatch, EveryKnownIdChangesThePhotoOnlyAndKeepsAlpha) {
    for (const auto& [overload, ids] : kKnown)
        for (int id : ids)
            for (const auto& [w, h] : {std::pair{9, 7}, std::pair{1, 1}, std::pair{0, 0}}) {
                const Inputs original(w, h);
                Inputs in = original;
                // For 1048 the three-material overload's result carries no meaning.
                EXPECT_TRUE(overload(id, in) == 1 || id == 1048) << id;
                // Real images change; a 0 x 0 call leaves its pixel alone.
                EXPECT_TRUE(w == 1 || (in.photo != original.photo) == (w > 1)) << id;
                const bool opaque = id == 1033 || id == 1035;  // the sharpening HDR looks
                for (std::size_t i = 3; w > 0 && i < original.photo.size(); i += 4)
                    ASSERT_EQ(in.photo[i], opaque ? 255 : original.photo[i]) << id;
                in.photo = original.photo;
                EXPECT_TRUE(in == original) << id << " wrote an input";
            }
}

TEST(Dispatch, EveryOverloadIgnoresTheIdsItDoesNotKnow) {
    // Every id in and around the catalogue's range, plus a few far outside it.
    std::vector<int> ids = {-1, 0, 1, 1000, 2000, 1048 + 65536};
    for (int id = 1010; id <= 1110; ++id) ids.push_back(id);
    // The three-material overload answers every other id with 1048.
    const std::pair<Overload, int> overloads[] = {
        {image_only, 1}, {one_material, 1}, {two_materials, 1}, {three_materials, 1048},
        {tables, 1},     {empty_one, 1},    {empty_two, 1}};
    const Inputs original(7, 5, 2);
    for (std::size_t o = 0; o < std::size(overloads); ++o)
        for (int id : ids) {
            if (known(overloads[o].first, id)) continue;
            Inputs in = original;
            const auto& [overload, answer] = overloads[o];
            EXPECT_EQ(overload(id, in), answer) << "overload " << o << " id " << id;
            EXPECT_TRUE(in == original) << "overload " << o << " id " << id << " wrote a buffer";
        }
}

// The facade's two time-tunnel steps are the two presets, and the second
// reports success (the golden digests run only the presets).
TEST(TimeTunnel, BothStepsAreTheirPresets) {
    Bytes mask = noise(240, 240, 84), via_facade = noise(7, 5, 85), direct = via_facade;
    Qtzqeffect effects;
    const std::unique_ptr<unsigned char[]> tunnel(
        effects.effectShiGuangSuiDao(via_facade.data(), mask.data(), 7, 5));
    const std::unique_ptr<unsigned char[]> expected(StyleChuanYue1(direct.data(), mask.data(), 7, 5));
    EXPECT_EQ(via_facade, direct);
    EXPECT_TRUE(std::equal(tunnel.get(), tunnel.get() + direct.size(), expected.get()));

    EXPECT_EQ(effects.effectShiGuangSuiDaoResult(via_facade.data(), tunnel.get(), 7, 5), 1);
    StyleChuanYue3(direct.data(), expected.get(), 7, 5);
    EXPECT_EQ(via_facade, direct);
}

TEST(Utilities, SampleClearsGreenAndRedOnly) {
    const Bytes photo = noise(7, 5);
    Bytes image = photo;
    Qtzqeffect effects;
    EXPECT_EQ(effects.sample(image.data(), 7, 5), 0);
    for (std::size_t i = 0; i < image.size(); i += 4)
        ASSERT_EQ(Bytes(&image[i], &image[i] + 4), (Bytes{photo[i], 0, 0, photo[i + 3]})) << i;
    // Without pixels the buffer stays as it is.
    image = photo;
    EXPECT_EQ(effects.sample(image.data(), 0, 2), 0);
    EXPECT_EQ(effects.sample(image.data(), 2, -1), 0);
    EXPECT_EQ(image, photo);
}

}  // namespace
