// qtzq apply, end to end: results equal direct library calls, inputs and
// outputs of every kind, and failures that name the problem and leave the
// existing results alone.
#include <qtzqeffect/facade.h>

#include "blend_tables.h"
#include "effect_inputs.h"
#include "image_file.h"
#include "jpeg_io.h"
#include "tool_harness.h"

namespace qtzq_tool_test {
namespace {

using ApplyTest = ToolTest;

TEST_F(ApplyTest, SingleImageEffectEqualsDirectCallAndKeepsAlpha) {
    const BgraImage photo = sample_photo(23, 17);
    save_png("in.png", photo);
    const RunResult result = run({"apply", "1020", path("in.png"), "-o", path("out.png")});
    ASSERT_EQ(result.status, 0) << result.err;
    BgraImage expected = photo;
    Qtzqeffect().effect(1020, expected.data(), expected.width, expected.height);
    EXPECT_EQ(load_png("out.png").pixels, expected.pixels);
}

TEST_F(ApplyTest, EffectNamesAreCaseInsensitiveAndEquivalentToIds) {
    save_png("in.png", sample_photo(9, 7));
    ASSERT_EQ(run({"apply", "1023", path("in.png"), "-o", path("by-id.png")}).status, 0);
    ASSERT_EQ(run({"apply", "STYLEJAPANESE", path("in.png"), "-o", path("by-preset.png")}).status, 0);
    ASSERT_EQ(run({"apply", "japanese", path("in.png"), "-o", path("by-look.png")}).status, 0);
    EXPECT_EQ(load_png("by-id.png").pixels, load_png("by-preset.png").pixels);
    EXPECT_EQ(load_png("by-id.png").pixels, load_png("by-look.png").pixels);
}

TEST_F(ApplyTest, GivenMaterialAndTablesReachTheFacadeUnchanged) {
    const BgraImage photo = opaque(sample_photo(16, 12, 3));
    const BgraImage m1 = sample_photo(16, 12, 4), m2 = sample_photo(16, 12, 5);
    save_png("in.png", photo);
    save_png("m1.png", m1);
    save_png("m2.png", m2);
    ASSERT_EQ(run({"apply", "1044", path("in.png"), "-m", path("m1.png"), "-o", path("one.png")}).status, 0);
    ASSERT_EQ(run({"tables", "screen", "softlight:0.5", "multiply", "-o", path("t.bin")}).status, 0);
    ASSERT_EQ(run({"apply", "1032", path("in.png"), "-m", path("m1.png"), "-m", path("m2.png"),
                   "--tables", path("t.bin"), "-o", path("tables.png")}).status, 0);

    Qtzqeffect facade;
    BgraImage one = photo, a = m1, b = m2;
    facade.effect(1044, one.data(), a.data(), one.width, one.height);
    EXPECT_EQ(load_png("one.png").pixels, one.pixels);

    const std::string table_bytes = slurp(path("t.bin"));
    std::vector<unsigned char> tables(table_bytes.begin(), table_bytes.end());
    BgraImage two = photo;
    facade.effect(1032, two.data(), a.data(), b.data(), two.width, two.height, tables.data(), 0);
    EXPECT_EQ(load_png("tables.png").pixels, two.pixels);
}

TEST_F(ApplyTest, MissingMaterialsAreTheGeneratedDefaults) {
    const BgraImage photo = opaque(sample_photo(20, 10, 6));
    save_png("in.png", photo);
    const RunResult result = run({"apply", "1038", path("in.png"), "-o", path("out.png")});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.err.find("generated paper on white"), std::string::npos) << result.err;

    const qtzq_cli::EffectInfo& info = *qtzq_cli::find_effect("1038");
    std::vector<BgraImage> materials = {qtzq_cli::default_material(info, 0, 20, 10),
                                        qtzq_cli::default_material(info, 1, 20, 10)};
    std::vector<unsigned char> tables = qtzq_cli::default_table_set(info);
    BgraImage expected = photo;
    Qtzqeffect().effect(1038, expected.data(), materials[0].data(), materials[1].data(), 20, 10,
                        tables.data(), 0);
    EXPECT_EQ(load_png("out.png").pixels, expected.pixels);
}

TEST_F(ApplyTest, ManyInputsInParallelEachEqualTheirDirectCall) {
    std::vector<std::string> args = {"apply", "StyleGray"};
    std::vector<BgraImage> photos;
    for (int i = 0; i < 8; ++i) {
        photos.push_back(sample_photo(7 + i, 5 + i, unsigned(10 + i)));
        save_png("in" + std::to_string(i) + ".png", photos.back());
        args.push_back(path("in" + std::to_string(i) + ".png"));
    }
    args.insert(args.end(), {"--out-dir", path("out"), "-j", "4"});
    const RunResult result = run(args);
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");  // not a terminal: no progress bar
    for (int i = 0; i < 8; ++i) {
        BgraImage expected = photos[std::size_t(i)];
        Qtzqeffect().effect(1101, expected.data(), expected.width, expected.height);
        EXPECT_EQ(load_png("out/in" + std::to_string(i) + ".png").pixels, expected.pixels) << i;
    }
}

TEST_F(ApplyTest, JpegOutputByExtension) {
    save_png("in.png", sample_photo(30, 20));
    const RunResult result =
        run({"apply", "1020", path("in.png"), "-o", path("out.jpg"), "--quality", "80"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.err.find("JPEG keeps no alpha"), std::string::npos) << result.err;
    BgraImage decoded;
    std::string error;
    ASSERT_TRUE(qtzq_cli::read_image(path("out.jpg"), decoded, error)) << error;
    EXPECT_EQ(decoded.width, 30);
    EXPECT_EQ(decoded.height, 20);
}

TEST_F(ApplyTest, MismatchedMaterialIsScaledOrRefusedWithExactSize) {
    save_png("in.png", sample_photo(20, 20));
    save_png("small.png", sample_photo(10, 10, 9));
    const RunResult scaled =
        run({"apply", "1043", path("in.png"), "-m", path("small.png"), "-o", path("out.png")});
    ASSERT_EQ(scaled.status, 0) << scaled.err;
    EXPECT_NE(scaled.err.find("scaled material " + path("small.png") + " from 10x10 to 20x20"),
              std::string::npos)
        << scaled.err;

    save_text("keep.png", "previous result");
    const RunResult refused = run({"apply", "1043", path("in.png"), "-m", path("small.png"),
                                   "--exact-size", "-o", path("keep.png")});
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find(path("small.png") + ": material is 10x10 but " + path("in.png") +
                               " is 20x20"),
              std::string::npos)
        << refused.err;
    EXPECT_EQ(slurp(path("keep.png")), "previous result");
}

TEST_F(ApplyTest, BadInputsFailWithAClearMessageAndTouchNothing) {
    save_text("keep.png", "previous result");
    save_text("corrupt.png", std::string("\x89PNG\r\n\x1a\n", 8) + "garbage that is no PNG");
    save_text("notes.txt", "hello");
    save_png("in.png", sample_photo(4, 4));
    struct Case {
        std::vector<std::string> args;
        int status;
        std::string message;
    };
    const std::vector<Case> cases = {
        {{"apply", "1020", path("missing.png"), "-o", path("keep.png")}, 1,
         path("missing.png") + ": cannot open file"},
        {{"apply", "1020", path("corrupt.png"), "-o", path("keep.png")}, 1,
         path("corrupt.png") + ": corrupt PNG"},
        {{"apply", "1020", path("notes.txt"), "-o", path("keep.png")}, 1,
         path("notes.txt") + ": not a PNG or JPEG file"},
        {{"apply", "nope", path("in.png"), "-o", path("keep.png")}, 2, "unknown effect 'nope'"},
        {{"apply", "1020", path("in.png"), "-m", path("in.png"), "-o", path("keep.png")}, 2,
         "1020 StyleFilm takes no materials"},
        {{"apply", "1044", path("in.png"), "-m", path("missing.png"), "-o", path("keep.png")}, 1,
         path("missing.png") + ": cannot open file"},
        {{"apply", "1031", path("in.png"), "--tables", path("notes.txt"), "-o", path("keep.png")},
         1, path("notes.txt") + ": 5 bytes; a blend table set has 196618"},
        {{"apply", "1020", path("in.png"), "-o", path("keep.gif")}, 2, "unknown image type"},
        {{"apply", "1020", path("in.png"), path("in.png"), "-o", path("keep.png")}, 2,
         "-o takes one INPUT"},
        {{"apply", "1020", path("in.png"), path("./in.png"), "--out-dir", path("d")}, 2,
         "two INPUTs would both be written"},
        {{"apply", "1020", path("in.png"), "-o", path("keep.png"), "--quality", "101"}, 2,
         "--quality wants a whole number from 1 to 100"},
    };
    for (const auto& c : cases) {
        const RunResult result = run(c.args);
        EXPECT_EQ(result.status, c.status) << c.message;
        EXPECT_NE(result.err.find(c.message), std::string::npos) << result.err;
        EXPECT_EQ(slurp(path("keep.png")), "previous result") << c.message;
    }
    EXPECT_FALSE(fs::exists(path("d")));
    for (const auto& entry : fs::directory_iterator(dir_))
        EXPECT_NE(entry.path().extension(), ".tmp") << "left behind: " << entry.path();
}

}  // namespace
}  // namespace qtzq_tool_test
