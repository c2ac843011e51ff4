// The effect facade: dispatch by id per overload, the unknown-id paths and
// the two utilities.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include <qtzqeffect/qtzqeffect.h>

#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

constexpr int kW = 7, kH = 5;

// Every id in and around the catalogue's range, plus a few far outside it.
std::vector<int> probe_ids() {
    std::vector<int> ids = {-1, 0, 1, 1000, 2000, 1048 + 65536};
    for (int id = 1010; id <= 1110; ++id) ids.push_back(id);
    return ids;
}

bool in(std::initializer_list<int> ids, int id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

TEST(Dispatch, SingleImageIdsReachTheirPresets) {
    const Bytes original = noise(kW, kH);
    const std::pair<int, void (*)(unsigned char*, int, int)> cases[] = {
        {1020, StyleFilm}, {1023, StyleJapanese}, {1040, StyleXiaoQingXin}, {1101, StyleGray}};
    Qtzqeffect effects;
    for (const auto& [id, preset] : cases) {
        Bytes via_facade = original, direct = original;
        EXPECT_EQ(effects.effect(id, via_facade.data(), kW, kH), 1);
        preset(direct.data(), kW, kH);
        EXPECT_EQ(via_facade, direct) << "id " << id;
        EXPECT_NE(via_facade, original) << "id " << id;
    }
}

TEST(Dispatch, UnknownIdsLeaveTheImageAndReturnOne) {
    Qtzqeffect effects;
    for (int id : probe_ids()) {
        if (in({1019, 1020, 1021, 1022, 1023, 1027, 1028, 1033, 1034, 1035, 1039, 1040, 1101}, id))
            continue;
        Bytes image = noise(kW, kH, 3);
        const Bytes before = image;
        EXPECT_EQ(effects.effect(id, image.data(), kW, kH), 1) << id;
        EXPECT_EQ(image, before) << id;
    }
}

TEST(Dispatch, SingleImageIdOnAnotherOverloadDoesNothing) {
    Qtzqeffect effects;
    Bytes image = noise(kW, kH), m1 = noise(kW, kH, 2), m2 = noise(kW, kH, 3),
          m3 = noise(kW, kH, 4);
    Bytes tables(196618, 7);
    const Bytes before = image;
    EXPECT_EQ(effects.effect(1020, image.data(), m1.data(), kW, kH), 1);
    EXPECT_EQ(effects.effect(1020, image.data(), m1.data(), m2.data(), kW, kH), 1);
    EXPECT_EQ(effects.effect(1020, image.data(), m1.data(), m2.data(), m3.data(), kW, kH), 1048);
    EXPECT_EQ(effects.effect(1020, image.data(), m1.data(), m2.data(), kW, kH, tables.data(), 0),
              1);
    EXPECT_EQ(image, before);
}

TEST(Dispatch, ThreeMaterialOverloadAnswersOtherIdsWith1048) {
    Qtzqeffect effects;
    Bytes image = noise(kW, kH), m1 = noise(kW, kH, 2), m2 = noise(kW, kH, 3),
          m3 = noise(kW, kH, 4);
    const Bytes before[] = {image, m1, m2, m3};
    for (int id : probe_ids()) {
        if (id == 1048) continue;
        EXPECT_EQ(effects.effect(id, image.data(), m1.data(), m2.data(), m3.data(), kW, kH), 1048)
            << id;
    }
    EXPECT_EQ(image, before[0]);
    EXPECT_EQ(m1, before[1]);
    EXPECT_EQ(m2, before[2]);
    EXPECT_EQ(m3, before[3]);
}

TEST(Dispatch, EmptyOverloadsDoNothingForEveryId) {
    Qtzqeffect effects;
    Bytes image = noise(kW, kH), m1 = noise(kW, kH, 2), m2 = noise(kW, kH, 3);
    const Bytes before[] = {image, m1, m2};
    for (int id : probe_ids()) {
        EXPECT_EQ(effects.effect(id, image.data(), kW, kH, m1.data(), 0), 1) << id;
        EXPECT_EQ(effects.effect(id, image.data(), m1.data(), kW, kH, m2.data(), 0), 1) << id;
    }
    EXPECT_EQ(image, before[0]);
    EXPECT_EQ(m1, before[1]);
    EXPECT_EQ(m2, before[2]);
}

TEST(Utilities, RandIntIsTheConstantOne) {
    Qtzqeffect effects;
    EXPECT_EQ(effects.randInt(0, 100), 1);
    EXPECT_EQ(effects.randInt(5, 5), 1);
    EXPECT_EQ(effects.randInt(100, -100), 1);
}

TEST(Utilities, SampleClearsGreenAndRedOnly) {
    Qtzqeffect effects;
    Bytes pixel = {10, 20, 30, 40};
    EXPECT_EQ(effects.sample(pixel.data(), 1, 1), 0);
    EXPECT_EQ(pixel, (Bytes{10, 0, 0, 40}));

    Bytes image = noise(kW, kH);
    const Bytes before = image;
    EXPECT_EQ(effects.sample(image.data(), kW, kH), 0);
    for (std::size_t i = 0; i < image.size(); i += 4) {
        EXPECT_EQ(image[i], before[i]);
        EXPECT_EQ(image[i + 1], 0);
        EXPECT_EQ(image[i + 2], 0);
        EXPECT_EQ(image[i + 3], before[i + 3]);
    }
}

TEST(Utilities, SampleWithoutPixelsLeavesTheBuffer) {
    Qtzqeffect effects;
    Bytes image = noise(2, 2);
    const Bytes before = image;
    EXPECT_EQ(effects.sample(image.data(), 0, 2), 0);
    EXPECT_EQ(effects.sample(image.data(), 2, -1), 0);
    EXPECT_EQ(image, before);
}

}  // namespace
