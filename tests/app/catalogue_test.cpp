// The catalogue and the generated inputs of the effects: materials and
// blend table sets.
#include <qtzqeffect/pixel.h>

#include <cstdint>

#include "app/app_test.h"
#include "qtzq_app/blend_tables.h"
#include "qtzq_app/catalogue.h"
#include "qtzq_app/materials.h"

namespace qtzq_app_test {
namespace {

using namespace qtzq_app;

TEST(Catalogue, EveryFacadeIdOnceWithItsOverload) {
    const std::vector<std::pair<Overload, std::vector<int>>> tables = {
        {Overload::Image, {1019, 1020, 1021, 1022, 1023, 1027, 1028, 1033, 1034, 1035, 1039, 1040, 1101}},
        {Overload::OneMaterial, {1026, 1030, 1042, 1043, 1044, 1045, 1046, 1047, 1102, 1104}},
        {Overload::TwoMaterials, {1018, 1041}},
        {Overload::ThreeMaterials, {1048}},
        {Overload::Tables, {1031, 1032, 1038}},
    };
    std::size_t total = 0;
    for (const auto& [overload, ids] : tables) {
        total += ids.size();
        for (const int id : ids) {
            const EffectInfo* info = find_effect(std::to_string(id));
            ASSERT_NE(info, nullptr) << id;
            EXPECT_EQ(info->overload, overload) << id;
            EXPECT_EQ(int(info->materials.size()), material_count(overload)) << id;
            EXPECT_EQ(info->table_modes.size(), needs_tables(overload) ? 3u : 0u) << id;
        }
    }
    EXPECT_EQ(catalogue().size(), total);
    for (const char* missing : {"1017", "1024", "1025", "1029", "1036", "1037", "1049", "1100",
                                "1103", "1105", ""})
        EXPECT_EQ(find_effect(missing), nullptr) << missing;
    EXPECT_EQ(find_effect("old-photo")->id, 1026);
    EXPECT_EQ(find_effect("Lomo_HDR")->id, 1035);
}

// The materials use integer hashing and plain arithmetic only, so their
// bytes are the same on every machine; these FNV-1a digests pin them, and
// another seed must draw another material.
TEST(Materials, BytesArePinnedAndFollowTheSeed) {
    const std::vector<std::pair<std::string, std::uint32_t>> expected = {
        {"vignette", 2466139675u}, {"light-leak", 1575735579u}, {"grain", 3878207800u},
        {"paper", 1215311681u},    {"stars", 3272155882u},      {"snow", 3041245306u},
    };
    ASSERT_EQ(material_kinds().size(), expected.size());
    for (const auto& [kind, digest] : expected) {
        const MaterialBase base = find_material_kind(kind)->default_base;
        const BgraImage material = make_material(kind, 48, 32, 1, base);
        std::uint32_t hash = 2166136261u;
        for (const unsigned char b : material.pixels) hash = (hash ^ b) * 16777619u;
        EXPECT_EQ(hash, digest) << kind;
        EXPECT_NE(make_material(kind, 48, 32, 2, base).pixels, material.pixels) << kind;
    }
}

// Every entry of every map is the library's blend of a grey photo value a
// with a grey operand b; the bytes the facade never reads are 0.
TEST(BlendTables, MapsHoldTheLibraryBlendOfEveryPairAtTheFacadeOffsets) {
    std::array<TableMode, 3> modes;
    std::string error;
    for (std::size_t m = 0; m < 3; ++m)
        ASSERT_TRUE(parse_table_mode(std::array{"ScreenEx", "normal:0", "multiply:0.5"}[m],
                                     modes[m], error)) << error;
    const std::vector<unsigned char> set = build_table_set(modes);
    ASSERT_EQ(set.size(), kTableSetSize);
    for (const std::size_t gap : {0, 1, 2, 3, 65540, 65541, 65542, 131079, 131080, 131081})
        EXPECT_EQ(set[gap], 0) << gap;
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            unsigned char screen[4] = {(unsigned char)a, (unsigned char)a, (unsigned char)a, 255};
            unsigned char multiply[4] = {(unsigned char)a, (unsigned char)a, (unsigned char)a, 255};
            unsigned char blend[4] = {(unsigned char)b, (unsigned char)b, (unsigned char)b, 255};
            ScreenEx(screen, blend, 1.0);
            MultipleEx(multiply, blend, 0.5);
            ASSERT_EQ(table_entry(set, 0, a, b), screen[0]) << a << "," << b;
            ASSERT_EQ(table_entry(set, 1, a, b), a);  // opacity 0 keeps the photo
            ASSERT_EQ(table_entry(set, 2, a, b), multiply[0]) << a << "," << b;
        }
}

}  // namespace
}  // namespace qtzq_app_test
