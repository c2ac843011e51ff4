// The effect facade: every known id reaches its preset through its own
// overload only, every overload leaves every buffer alone for the ids it does
// not know, the two-step time tunnel, and the two utilities.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <qtzqeffect/qtzqeffect.h>

#include "support/clock_seeded.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

using Uc = unsigned char;

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

using Call = std::function<int(Inputs&)>;

// How each overload is called through the facade, and the preset directly.
Call facade_image(int id) {
    return [id](Inputs& in) { return Qtzqeffect().effect(id, in.photo.data(), in.w, in.h); };
}
Call facade_one(int id) {
    return [id](Inputs& in) {
        return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.w, in.h);
    };
}
Call facade_two(int id) {
    return [id](Inputs& in) {
        return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h);
    };
}
Call facade_three(int id) {
    return [id](Inputs& in) {
        return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.m3.data(),
                                   in.w, in.h);
    };
}
Call facade_tables(int id) {
    return [id](Inputs& in) {
        return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h,
                                   in.tables.data(), 99);
    };
}
Call direct(void (*p)(Uc*, int, int)) {
    return [p](Inputs& in) { return p(in.photo.data(), in.w, in.h), 1; };
}
Call direct(void (*p)(Uc*, Uc*, int, int)) {
    return [p](Inputs& in) { return p(in.photo.data(), in.m1.data(), in.w, in.h), 1; };
}
Call direct(void (*p)(Uc*, Uc*, Uc*, int, int)) {
    return [p](Inputs& in) { return p(in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h), 1; };
}
Call direct(void (*p)(Uc*, Uc*, Uc*, Uc*, int, int)) {
    return [p](Inputs& in) {
        return p(in.photo.data(), in.m1.data(), in.m2.data(), in.m3.data(), in.w, in.h), 1;
    };
}
Call direct(void (*p)(Uc*, Uc*, Uc*, int, int, Uc*)) {
    return [p](Inputs& in) {
        return p(in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h, in.tables.data()), 1;
    };
}

// Every id with its overload and its direct call; the sharpening HDR looks
// set alpha to 255.
using Overload = Call (*)(int id);
struct Route {
    int id;
    Overload overload;
    Call preset;
    bool opaque_result = false;
};

std::vector<Route> routes() {
    std::vector<Route> all;
    const std::pair<int, void (*)(Uc*, int, int)> images[] = {
        {1019, StyleElegant},  {1020, StyleFilm},     {1021, StyleRetro},
        {1022, StyleCinnamon}, {1023, StyleJapanese}, {1027, StyleImpression},
        {1028, StyleBaoColor}, {1033, StyleLomoHDRJinDian}, {1034, StyleHeiBai},
        {1035, StyleLomoHDR},  {1039, StyleLiuJin},   {1040, StyleXiaoQingXin},
        {1101, StyleGray}};
    for (const auto& [id, p] : images)
        all.push_back({id, facade_image, direct(p), id == 1033 || id == 1035});
    const std::pair<int, void (*)(Uc*, Uc*, int, int)> ones[] = {
        {1026, StyleOldPhoto},  {1030, StyleBrightRed}, {1042, StyleLomoChristmas},
        {1043, StyleLomoSnow},  {1044, StyleLomoNight}, {1045, StyleLomoHalo},
        {1046, StyleLomoStar},  {1047, StyleReverse},   {1102, StyleRiguanghaian},
        {1104, StyleYiZhou}};
    for (const auto& [id, p] : ones) all.push_back({id, facade_one, direct(p)});
    all.push_back({1018, facade_two, direct(StyleJinDian)});
    all.push_back({1041, facade_two, direct(StyleWarm)});
    all.push_back({1048, facade_three, direct(StyleFenHongJiaRen)});
    all.push_back({1031, facade_tables, direct(StyleNiuPiZhi)});
    all.push_back({1032, facade_tables, direct(StyleXuanCai)});
    all.push_back({1038, facade_tables, direct(StyleFanHuang)});
    return all;
}

TEST(Dispatch, EveryKnownIdGivesItsPresetsBytesAndLeavesAlphaAndInputs) {
    for (const Route& r : routes())
        for (const auto& [w, h] : {std::pair{9, 7}, std::pair{1, 1}, std::pair{0, 0}}) {
            const Inputs original(w, h);
            // In one second, for the presets that seed rand() from the clock.
            const auto results = qtzq_test::within_one_second(
                [&] {
                    Inputs in = original;
                    // For 1048 the three-material overload's result carries no meaning.
                    const int result = r.overload(r.id)(in);
                    EXPECT_TRUE(result == 1 || r.id == 1048) << r.id;
                    return in;
                },
                [&] {
                    Inputs in = original;
                    r.preset(in);
                    return in;
                });
            ASSERT_TRUE(results);
            const Inputs& via_facade = results->first;
            EXPECT_EQ(via_facade.photo, results->second.photo) << r.id;
            // Real images change; a 0 x 0 call leaves its pixel alone.
            EXPECT_TRUE(w == 1 || (via_facade.photo != original.photo) == (w > 1)) << r.id;
            for (std::size_t i = 3; w > 0 && i < original.photo.size(); i += 4)
                ASSERT_EQ(via_facade.photo[i], r.opaque_result ? 255 : original.photo[i]) << r.id;
            Inputs inputs_only = via_facade;
            inputs_only.photo = original.photo;
            EXPECT_TRUE(inputs_only == original) << r.id << " wrote an input";
        }
}

// Every id in and around the catalogue's range, plus a few far outside it.
std::vector<int> probe_ids() {
    std::vector<int> ids = {-1, 0, 1, 1000, 2000, 1048 + 65536};
    for (int id = 1010; id <= 1110; ++id) ids.push_back(id);
    return ids;
}

Call facade_empty_one(int id) {
    return [id](Inputs& in) {
        return Qtzqeffect().effect(id, in.photo.data(), in.w, in.h, in.m1.data(), 0);
    };
}
Call facade_empty_two(int id) {
    return [id](Inputs& in) {
        return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.w, in.h, in.m2.data(), 0);
    };
}

TEST(Dispatch, EveryOverloadIgnoresTheIdsItDoesNotKnow) {
    // The three-material overload answers every other id with 1048; the
    // two empty overloads know no id.
    const std::pair<Overload, int> overloads[] = {
        {facade_image, 1}, {facade_one, 1},       {facade_two, 1},      {facade_three, 1048},
        {facade_tables, 1}, {facade_empty_one, 1}, {facade_empty_two, 1}};
    const std::vector<Route> known = routes();
    const Inputs original(7, 5, 2);
    for (std::size_t o = 0; o < std::size(overloads); ++o)
        for (int id : probe_ids()) {
            const auto& [overload, answer] = overloads[o];
            if (std::any_of(known.begin(), known.end(), [&, overload = overload](const Route& r) {
                    return r.id == id && r.overload == overload;
                }))
                continue;
            Inputs in = original;
            EXPECT_EQ(overload(id)(in), answer) << "overload " << o << " id " << id;
            EXPECT_TRUE(in == original) << "overload " << o << " id " << id << " wrote a buffer";
        }
}

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

TEST(Utilities, RandIntIsOneAndSampleClearsGreenAndRedOnly) {
    Qtzqeffect effects;
    EXPECT_EQ(effects.randInt(0, 100), 1);
    EXPECT_EQ(effects.randInt(5, 5), 1);
    EXPECT_EQ(effects.randInt(100, -100), 1);

    const Bytes photo = noise(7, 5);
    Bytes image = photo;
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
