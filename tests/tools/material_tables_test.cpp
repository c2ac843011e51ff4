// qtzq material and qtzq tables: deterministic materials and blend table
// sets in the facade's layout.
#include <qtzqeffect/pixel.h>

#include "blend_tables.h"
#include "effect_inputs.h"
#include "materials.h"
#include "tool_harness.h"

namespace qtzq_tool_test {
namespace {

using MaterialTest = ToolTest;
using TablesTest = ToolTest;

TEST_F(MaterialTest, SameSeedSameBytesOtherSeedOtherBytes) {
    for (const auto& kind : qtzq_cli::material_kinds()) {
        const std::string name = kind.name;
        ASSERT_EQ(run({"material", name, "40", "30", "-o", path("a.png"), "--seed", "7"}).status, 0);
        ASSERT_EQ(run({"material", name, "40", "30", "-o", path("b.png"), "--seed", "7"}).status, 0);
        ASSERT_EQ(run({"material", name, "40", "30", "-o", path("c.png"), "--seed", "8"}).status, 0);
        const BgraImage a = load_png("a.png");
        EXPECT_EQ(a.width, 40);
        EXPECT_EQ(a.height, 30);
        EXPECT_EQ(a.pixels, load_png("b.png").pixels) << name;
        EXPECT_NE(a.pixels, load_png("c.png").pixels) << name;
    }
}

TEST_F(MaterialTest, DrawnOverTheRequestedNeutralBaseAndOpaque) {
    using qtzq_cli::MaterialBase;
    // A vignette keeps its base in the middle and darkens the corners.
    for (const auto& [base, level] :
         {std::pair{MaterialBase::Grey, 128}, {MaterialBase::White, 255}}) {
        const BgraImage v = qtzq_cli::make_material("vignette", 101, 101, 1, base);
        EXPECT_NEAR(v.at(50, 50)[1], level, 1);
        EXPECT_LT(v.at(0, 0)[1], level / 3);
    }
    // Stars and snow on black: mostly black, nothing darker than the base.
    for (const std::string kind : {"stars", "snow", "light-leak"}) {
        const BgraImage m = qtzq_cli::make_material(kind, 64, 64, 5, MaterialBase::Black);
        std::size_t lit = 0;
        for (std::size_t i = 0; i < m.pixels.size(); i += 4) {
            EXPECT_EQ(m.pixels[i + 3], 255);
            lit += m.pixels[i + 1] > 0;
        }
        EXPECT_GT(lit, 0u) << kind;
    }
}

TEST_F(MaterialTest, BadArgumentsAreUsageErrors) {
    EXPECT_EQ(run({"material", "clouds", "4", "4", "-o", path("a.png")}).status, 2);
    EXPECT_EQ(run({"material", "snow", "0", "4", "-o", path("a.png")}).status, 2);
    EXPECT_EQ(run({"material", "snow", "4", "4", "--base", "pink", "-o", path("a.png")}).status, 2);
    EXPECT_FALSE(fs::exists(path("a.png")));
}

TEST_F(TablesTest, MapsHoldTheLibraryBlendOfEveryPairAtTheFacadeOffsets) {
    const RunResult result = run({"tables", "ScreenEx", "normal:0", "multiply:0.5", "-o", path("t.bin")});
    ASSERT_EQ(result.status, 0) << result.err;
    const std::string raw = slurp(path("t.bin"));
    const std::vector<unsigned char> set(raw.begin(), raw.end());
    ASSERT_EQ(set.size(), 196618u);
    // Bytes the facade never reads are 0.
    for (const std::size_t gap : {0, 1, 2, 3, 65540, 65541, 65542, 131079, 131080, 131081})
        EXPECT_EQ(set[gap], 0) << gap;
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            unsigned char screen[4] = {(unsigned char)a, (unsigned char)a, (unsigned char)a, 255};
            unsigned char multiply[4] = {(unsigned char)a, (unsigned char)a, (unsigned char)a, 255};
            unsigned char blend[4] = {(unsigned char)b, (unsigned char)b, (unsigned char)b, 255};
            ScreenEx(screen, blend, 1.0);
            MultipleEx(multiply, blend, 0.5);
            ASSERT_EQ(qtzq_cli::table_entry(set, 0, a, b), screen[0]) << a << "," << b;
            ASSERT_EQ(qtzq_cli::table_entry(set, 1, a, b), a);  // opacity 0 keeps the photo
            ASSERT_EQ(qtzq_cli::table_entry(set, 2, a, b), multiply[0]) << a << "," << b;
        }
}

TEST_F(TablesTest, ForEffectWritesTheDefaultsThatApplyUses) {
    ASSERT_EQ(run({"tables", "--for", "kraft paper", "-o", path("t.bin")}).status, 0);
    const std::string raw = slurp(path("t.bin"));
    EXPECT_EQ(std::vector<unsigned char>(raw.begin(), raw.end()),
              qtzq_cli::default_table_set(*qtzq_cli::find_effect("1031")));
}

TEST_F(TablesTest, BadModesAreUsageErrors) {
    const RunResult unknown = run({"tables", "screen", "dodge", "normal", "-o", path("t.bin")});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_NE(unknown.err.find("unknown blend mode 'dodge'"), std::string::npos);
    EXPECT_EQ(run({"tables", "screen", "normal:1.5", "normal", "-o", path("t.bin")}).status, 2);
    EXPECT_EQ(run({"tables", "screen", "normal", "-o", path("t.bin")}).status, 2);
    EXPECT_EQ(run({"tables", "--for", "1020", "-o", path("t.bin")}).status, 2);
    EXPECT_FALSE(fs::exists(path("t.bin")));
}

}  // namespace
}  // namespace qtzq_tool_test
