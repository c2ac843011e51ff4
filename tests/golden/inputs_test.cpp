#include "inputs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace qtzq_golden;

std::size_t buffer_size(int width, int height) { return std::size_t(width) * height * 4; }

TEST(GoldenInputs, ScenesCoverTheAwkwardSizes) {
    std::set<std::string> names;
    for (const Scene& s : scenes()) {
        names.insert(s.name);
        EXPECT_EQ(s.name, std::to_string(s.width) + "x" + std::to_string(s.height));
        EXPECT_EQ(s.photo.size(), buffer_size(s.width, s.height)) << s.name;
        EXPECT_EQ(s.material1.size(), s.photo.size()) << s.name;
        EXPECT_EQ(s.material2.size(), s.photo.size()) << s.name;
        EXPECT_EQ(s.material3.size(), s.photo.size()) << s.name;
    }
    for (const char* needed : {"1x1", "1x6", "6x1", "13x7", "97x61", "256x256"})
        EXPECT_EQ(names.count(needed), 1u) << needed;
}

TEST(GoldenInputs, GeneratedImagesAreVariedAndDistinct) {
    const Bytes p = photo(97, 61);
    std::set<int> values[4];
    for (std::size_t i = 0; i < p.size(); ++i) values[i % 4].insert(p[i]);
    for (int channel = 0; channel < 4; ++channel) {
        EXPECT_GT(values[channel].size(), 200u) << "channel " << channel;
        EXPECT_EQ(values[channel].count(0) + values[channel].count(255), 2u) << channel;
    }
    EXPECT_NE(material(97, 61, 1), material(97, 61, 2));
    EXPECT_NE(material(97, 61, 2), material(97, 61, 3));
    EXPECT_NE(material(97, 61, 1), p);
    EXPECT_EQ(photo(13, 7), photo(13, 7));
}

// Every colour channel of the pair images holds each (base, blend) pair of
// byte values exactly once.
TEST(GoldenInputs, ChannelPairsAreExhaustive) {
    const ChannelPairs& pairs = channel_pairs();
    ASSERT_EQ(pairs.base.size(), buffer_size(256, 256));
    ASSERT_EQ(pairs.blend.size(), pairs.base.size());
    for (int channel = 0; channel < 3; ++channel) {
        std::vector<bool> seen(65536, false);
        for (std::size_t at = channel; at < pairs.base.size(); at += 4)
            seen[pairs.base[at] * 256 + pairs.blend[at]] = true;
        EXPECT_EQ(std::count(seen.begin(), seen.end(), false), 0) << "channel " << channel;
    }
}

TEST(GoldenInputs, BlendTablesHaveTheirLayout) {
    const Bytes tables = blend_tables();
    ASSERT_EQ(tables.size(), kBlendTableSetSize);
    // Bytes outside the three maps.
    for (std::size_t at : {std::size_t(0), std::size_t(3), std::size_t(65540), std::size_t(65542),
                           std::size_t(131079), std::size_t(131081)})
        EXPECT_EQ(tables[at], 0xA5) << at;
    // Entry (a, b) sits at map start + a * 256 + b; the maps are asymmetric.
    const std::size_t map2 = kBlendTableOffsets[2];
    EXPECT_EQ(tables[map2 + 200 * 256 + 10], (200 + 255 - 10) / 2);
    EXPECT_EQ(tables[map2 + 10 * 256 + 200], (10 + 255 - 200) / 2);
    EXPECT_EQ(tables[kBlendTableOffsets[1] + 255 * 256 + 255], 255);
    EXPECT_EQ(tables[kBlendTableOffsets[0] + 255 * 256 + 255], 255);
    EXPECT_EQ(tables.back(), (255 + 255 - 255) / 2);
}

TEST(GoldenInputs, FileBuilderWritesLittleEndianAtOffsets) {
    FileBuilder file;
    file.u32(0x04030201u).i32(-2).pad_to(12).ascii("MZYPT").pad_to(10).bytes({7, 8});
    const Bytes expected = {1, 2, 3,   4,   0xFE, 0xFF, 0xFF, 0xFF, 0, 0,
                            0, 0, 'M', 'Z', 'Y',  'P',  'T',  7,    8};
    EXPECT_EQ(file.data(), expected);
}

TEST(GoldenInputs, CurvePointsStayInRange) {
    for (const auto& points : curve_point_lists()) {
        EXPECT_FALSE(points.empty());
        for (const CurvePoint& p : points) {
            EXPECT_TRUE(p.x >= 0 && p.x <= 255 && p.y >= 0 && p.y <= 255);
        }
    }
}

}  // namespace
