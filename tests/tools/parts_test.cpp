// The tool's parts: argument parsing, the catalogue, scaling and the
// bitmap font.
#include "args.h"
#include "bitmap_font.h"
#include "catalogue.h"
#include "resample.h"
#include "tool_harness.h"

namespace qtzq_tool_test {
namespace {

using namespace qtzq_cli;

TEST(Args, LongShortInlineRepeatedAndPositional) {
    const std::vector<OptionDef> options = {
        {"output", 'o', true, false}, {"material", 'm', true, true}, {"quiet", 'q', false, false}};
    const ParsedArgs args = parse_args(
        {"a", "-oout.png", "--material=x", "-m", "y", "-q", "-5", "--", "--not-an-option"}, options);
    EXPECT_EQ(args.positionals, (std::vector<std::string>{"a", "-5", "--not-an-option"}));
    EXPECT_EQ(args.value("output"), "out.png");
    EXPECT_EQ(args.values("material"), (std::vector<std::string>{"x", "y"}));
    EXPECT_TRUE(args.has("quiet"));
    EXPECT_THROW(parse_args({"--bogus"}, options), UsageError);
    EXPECT_THROW(parse_args({"-o"}, options), UsageError);
    EXPECT_THROW(parse_args({"-o", "a", "-o", "b"}, options), UsageError);
    EXPECT_THROW(parse_args({"--quiet=yes"}, options), UsageError);
    const ParsedArgs numbers = parse_args({"--output", "12x"}, options);
    EXPECT_THROW(numbers.int_value("output", 0, 0, 100), UsageError);
}

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
    for (const int id : {1017, 1024, 1025, 1029, 1036, 1037, 1049, 1100, 1103, 1105})
        EXPECT_EQ(find_effect(std::to_string(id)), nullptr) << id;
    EXPECT_EQ(find_effect("old-photo")->id, 1026);
    EXPECT_EQ(find_effect("Lomo_HDR")->id, 1035);
    EXPECT_EQ(find_effect(""), nullptr);
}

TEST(Resample, BilinearKeepsConstantsAndTheSameSize) {
    const BgraImage image = sample_photo(5, 4);
    EXPECT_EQ(scale_bilinear(image, 5, 4).pixels, image.pixels);
    BgraImage flat(3, 3);
    for (auto& byte : flat.pixels) byte = 77;
    for (const auto byte : scale_bilinear(flat, 11, 2).pixels) EXPECT_EQ(byte, 77);
}

TEST(Resample, AreaShrinkAveragesEachBlock) {
    BgraImage image(4, 2);
    for (int x = 0; x < 4; ++x)
        for (int y = 0; y < 2; ++y) image.at(x, y)[0] = static_cast<unsigned char>(x < 2 ? 10 * (x + y) : 200);
    const BgraImage small = scale_area(image, 2, 1);
    EXPECT_EQ(small.at(0, 0)[0], 10);  // (0 + 10 + 10 + 20) / 4
    EXPECT_EQ(small.at(1, 0)[0], 200);
    int w = 0, h = 0;
    fit_size(400, 100, 80, 80, w, h);
    EXPECT_EQ(w, 80);
    EXPECT_EQ(h, 20);
}

TEST(BitmapFont, GlyphsMeasureAndClip) {
    // '1': a vertical stroke in the middle column, 7 rows high.
    for (int row = 0; row < 7; ++row) EXPECT_TRUE(glyph_pixel('1', 2, row));
    EXPECT_FALSE(glyph_pixel('1', 2, 7));
    EXPECT_FALSE(glyph_pixel(' ', 2, 3));
    EXPECT_TRUE(glyph_pixel('g', 1, 7));  // descender
    EXPECT_EQ(text_width("abc", 1), 17);
    EXPECT_EQ(text_width("abc", 2), 34);
    EXPECT_EQ(fit_text("abcdefghij", text_width("abcdef", 1), 1), "abc...");
    BgraImage image(4, 4);
    draw_text(image, -3, -3, "W", {255, 0, 0}, 2);  // clipped, must not write outside
    std::size_t red = 0;
    for (std::size_t i = 0; i < image.pixels.size(); i += 4) red += image.pixels[i + 2] == 255;
    EXPECT_GT(red, 0u);
}

}  // namespace
}  // namespace qtzq_tool_test
