// The catalogue, the generated inputs of the effects and the errors of
// inputs an effect does not take.
#include <qtzqeffect/pixel.h>

#include <cstdint>

#include "app/app_test.h"
#include "qtzq_app/blend_tables.h"
#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_inputs.h"
#include "qtzq_app/errors.h"
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

std::uint32_t fnv1a(const std::vector<unsigned char>& bytes) {
    std::uint32_t hash = 2166136261u;
    for (const unsigned char b : bytes) hash = (hash ^ b) * 16777619u;
    return hash;
}

// The materials use integer hashing and plain arithmetic only, so their
// bytes are the same on every machine; these digests pin them, and another
// seed must draw another material.
TEST(Materials, BytesArePinnedAndFollowTheSeed) {
    const std::vector<std::pair<std::string, std::uint32_t>> expected = {
        {"vignette", 2466139675u}, {"light-leak", 1575735579u}, {"grain", 3878207800u},
        {"paper", 1215311681u},    {"stars", 3272155882u},      {"snow", 3041245306u},
    };
    ASSERT_EQ(material_kinds().size(), expected.size());
    for (const auto& [kind, digest] : expected) {
        const MaterialBase base = find_material_kind(kind)->default_base;
        const BgraImage material = make_material(kind, 48, 32, 1, base);
        EXPECT_EQ(fnv1a(material.pixels), digest) << kind;
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
    const auto grey = [](int v) {
        const auto byte = static_cast<unsigned char>(v);
        return std::array<unsigned char, 4>{byte, byte, byte, 255};
    };
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            auto screen = grey(a), multiply = grey(a), blend = grey(b);
            ScreenEx(screen.data(), blend.data(), 1.0);
            MultipleEx(multiply.data(), blend.data(), 0.5);
            ASSERT_EQ(table_entry(set, 0, a, b), screen[0]) << a << "," << b;
            ASSERT_EQ(table_entry(set, 1, a, b), a);  // opacity 0 keeps the photo
            ASSERT_EQ(table_entry(set, 2, a, b), multiply[0]) << a << "," << b;
        }
    for (const char* bad : {"dodge", "normal:1.5", "screen:x", "screen:"})
        EXPECT_FALSE(parse_table_mode(bad, modes[0], error)) << bad;
}

class EffectInputsTest : public FolderTest {
protected:
    EffectInputsTest() : FolderTest(QTZQ_APP_TEST_WORK_DIR) {}
};

// Inputs the effect does not take are RequestErrors; files that cannot be
// used are InputErrors naming the file.
TEST_F(EffectInputsTest, RefusalsHaveTheirErrorType) {
    save_png("m.png", sample_photo(10, 10));
    save_text("short.bin", "hello");
    const EffectInfo& film = *find_effect("1020");
    const EffectInfo& night = *find_effect("1044");
    const EffectInfo& kraft = *find_effect("1031");
    EXPECT_THROW(EffectInputs(film, {path("m.png")}, "", false), RequestError);
    EXPECT_THROW(EffectInputs(night, {path("m.png"), path("m.png")}, "", false), RequestError);
    EXPECT_THROW(EffectInputs(film, {}, path("short.bin"), false), RequestError);
    EXPECT_THROW(EffectInputs(night, {path("missing.png")}, "", false), InputError);
    EXPECT_THROW(EffectInputs(kraft, {}, path("short.bin"), false), InputError);
    std::vector<std::string> notes;
    EXPECT_THROW(EffectInputs(night, {path("m.png")}, "", true).materials_for(20, 20, "p", notes),
                 InputError);
    EXPECT_TRUE(notes.empty());
}

TEST_F(EffectInputsTest, MissingInputsAreTheGeneratedDefaults) {
    save_png("m.png", sample_photo(10, 10));
    const EffectInfo& info = *find_effect("1041");
    EffectInputs inputs(info, {path("m.png")}, "", false);
    std::vector<std::string> notes;
    const std::vector<BgraImage> materials = inputs.materials_for(20, 16, "p", notes);
    ASSERT_EQ(materials.size(), 2u);
    EXPECT_EQ(materials[0].width, 20);
    EXPECT_EQ(materials[1].pixels, default_material(info, 1, 20, 16).pixels);
    EXPECT_EQ(notes, std::vector<std::string>{"scaled material " + path("m.png") +
                                              " from 10x10 to 20x16 for p"});
    EffectInputs kraft(*find_effect("1031"), {}, "", false);
    EXPECT_EQ(std::vector<unsigned char>(kraft.tables(), kraft.tables() + kTableSetSize),
              default_table_set(*find_effect("1031")));
}

}  // namespace
}  // namespace qtzq_app_test
