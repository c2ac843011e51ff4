// The other commands end to end (gallery, list, material, tables, frame,
// make-frame), and every kind of mistake: its exit status, its message,
// and outputs left as they were.
#include <qtzqeffect/frame.h>

#include <algorithm>
#include <array>
#include <tuple>

#include "qtzq_app/blend_tables.h"
#include "qtzq_app/catalogue.h"
#include "qtzq_app/effect_inputs.h"
#include "qtzq_app/materials.h"
#include "support/images.h"
#include "tools/tool_harness.h"

namespace qtzq_tool_test {
namespace {

using CommandTest = ToolTest;

TEST_F(CommandTest, GalleryHasEveryEffectTheOriginalSheetAndIndex) {
    save_png("photo.png", opaque(sample_photo(90, 30)));
    const RunResult result = run({"gallery", path("photo.png"), "-o", path("g"), "--max-size", "45",
                                  "--thumb-width", "32", "-j", "3"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find("effects on " + path("photo.png")), std::string::npos);
    const std::string html = slurp(path("g/index.html"));
    std::size_t images = 0;
    for (const auto& entry : fs::directory_iterator(path("g"))) images += entry.path().extension() == ".png";
    EXPECT_EQ(images, qtzq_app::catalogue().size() + 2);
    for (const auto& info : qtzq_app::catalogue()) {
        const std::string file = std::to_string(info.id) + "-" + info.preset + ".png";
        EXPECT_EQ(load_png("g/" + file).width, 45) << file;  // the photo shrunk first
        EXPECT_NE(html.find("src=\"" + file + "\""), std::string::npos) << file;
        for (std::size_t slot = 0; slot < info.materials.size(); ++slot)
            EXPECT_TRUE(fs::exists(path("g/materials/" + std::to_string(info.id) + "-" + info.preset +
                                        "-" + std::to_string(slot + 1) + "-" +
                                        info.materials[slot].fallback.kind + ".png"))) << file;
    }
    EXPECT_EQ(load_png("g/original.png").height, 15);
    EXPECT_GT(load_png("g/contact-sheet.png").width, 6 * 32);
}

TEST_F(CommandTest, ListShowsEveryIdAndEveryCommandHasHelp) {
    const RunResult result = run({"list", "--tsv"});
    ASSERT_EQ(result.status, 0);
    EXPECT_EQ(std::size_t(std::count(result.out.begin(), result.out.end(), '\n')),
              qtzq_app::catalogue().size());
    for (const char* line : {"1020\tStyleFilm\tfilm\timage\t\t\tno\n",
                             "1048\tStyleFenHongJiaRen\tpink beauty\t3 materials\t",
                             "1021\tStyleRetro\tretro grain\timage\t\t\tyes\n"})
        EXPECT_NE(result.out.find(line), std::string::npos) << line;
    for (const std::string command : {"list", "apply", "gallery", "material", "tables", "frame",
                                      "make-frame"}) {
        const RunResult help = run({command, "--help"});
        EXPECT_EQ(help.status, 0) << command;
        EXPECT_EQ(help.out.rfind("usage: qtzq " + command, 0), 0u) << help.out;
    }
}

TEST_F(CommandTest, MaterialsAndTablesAreTheGeneratedOnes) {
    using qtzq_app::MaterialBase;
    for (const auto& [kind, base, flag] : {std::tuple{"grain", MaterialBase::Grey, "grey"},
                                           {"stars", MaterialBase::White, "white"}}) {
        run_ok({"material", kind, "40", "30", "--seed", "7", "--base", flag, "-o", path("m.png")});
        EXPECT_EQ(load_png("m.png").pixels, qtzq_app::make_material(kind, 40, 30, 7, base).pixels);
    }
    run_ok({"tables", "ScreenEx", "normal:0", "multiply:0.5", "-o", path("t.bin")});
    std::array<qtzq_app::TableMode, 3> modes;
    std::string error;
    for (std::size_t m = 0; m < 3; ++m)
        ASSERT_TRUE(qtzq_app::parse_table_mode(std::array{"screen", "normal:0", "MultipleEx:0.5"}[m],
                                               modes[m], error));
    EXPECT_EQ(load_bytes("t.bin"), qtzq_app::build_table_set(modes));
    run_ok({"tables", "--for", "kraft paper", "-o", path("t.bin")});
    EXPECT_EQ(load_bytes("t.bin"), qtzq_app::default_table_set(*qtzq_app::find_effect("1031")));
}

// Corner pieces 6 x 6, top and bottom edges 4 x 6, left edge 6 x 4 (half
// transparent), no right edge, insets 2: the framed photo is the library's
// composite.
TEST_F(CommandTest, FramedPhotoIsTheLibraryComposite) {
    const auto solid = [](int w, int h, unsigned char b, unsigned char r, unsigned char a) {
        BgraImage image(w, h);
        image.pixels = qtzq_test::solid(w, h, b, 0, r, a);
        return image;
    };
    save_png("corner.png", solid(6, 6, 0, 255, 255));
    save_png("hedge.png", solid(4, 6, 255, 0, 255));
    save_png("vedge.png", solid(6, 4, 255, 0, 128));
    const std::string c = path("corner.png"), e = path("hedge.png"), v = path("vedge.png");
    run_ok({"make-frame", c, c, c, c, e, e, v, "-", "--insets", "2,2", "-o", path("frame.bin")});
    const BgraImage photo = opaque(sample_photo(16, 12));
    save_png("photo.png", photo);
    run_ok({"frame", path("frame.bin"), path("photo.png"), "-o", path("out.png")});
    const BgraImage out = load_png("out.png");
    ASSERT_EQ(out.width, 16 + 6 + 6 - 2 - 2);  // spans of whole edges: nothing cropped
    ASSERT_EQ(out.height, 12 + 6 + 6 - 2 - 2);
    EXPECT_EQ(std::vector<unsigned char>(out.at(12, 10), out.at(12, 10) + 4),
              std::vector<unsigned char>(photo.at(8, 6), photo.at(8, 6) + 4));  // photo at (4, 4)

    std::vector<unsigned char> bytes = load_bytes("frame.bin");
    cframe frame;
    ASSERT_EQ(frame.ReadFrameFile(bytes.data(), int(bytes.size())), 1);
    for (int slot = 0; slot < 8; ++slot) {
        int length = 0;
        const unsigned char* block = frame.GetFrameImage(slot, length);
        if (!block) continue;
        BgraImage piece;
        std::string error;
        ASSERT_TRUE(qtzq_app::read_png_memory(block, std::size_t(length), "piece", piece, error));
        frame.SetFrameImageData(slot, piece.data(), piece.width, piece.height);
    }
    BgraImage copy = photo;
    int width = 0, height = 0;
    const unsigned char* framed = frame.GetCompositeImage(copy.data(), 16, 12, 1.0f, &width, &height);
    ASSERT_NE(framed, nullptr);
    EXPECT_EQ(std::vector<unsigned char>(framed, framed + out.pixels.size()), out.pixels);
}

// Usage mistakes exit with status 2, failures while working with 1; both
// name the problem on stderr and leave existing outputs alone.
TEST_F(CommandTest, MistakesExitWithTheirStatusAndMessageAndTouchNothing) {
    save_text("keep.png", "previous result");
    save_text("corrupt.png", std::string("\x89PNG\r\n\x1a\n", 8) + "garbage that is no PNG");
    save_text("notes.txt", "hello");
    save_text("cut.bin", std::string(90, '\0').replace(80, 1, "\x01"));
    save_png("in.png", sample_photo(20, 20));
    save_png("small.png", sample_photo(10, 10));
    const std::string in = path("in.png"), keep = path("keep.png"), small = path("small.png");
    const std::string none = "-";
    const std::vector<std::tuple<std::vector<std::string>, int, std::string>> cases = {
        {{"apply", "1020", path("missing.png"), "-o", keep}, 1, path("missing.png") + ": cannot open file"},
        {{"apply", "1020", path("corrupt.png"), "-o", keep}, 1, path("corrupt.png") + ": corrupt PNG"},
        {{"apply", "1020", path("notes.txt"), "-o", keep}, 1, path("notes.txt") + ": not a PNG or JPEG file"},
        {{"apply", "nope", in, "-o", keep}, 2, "unknown effect 'nope'"},
        {{"apply", "1020", in, "-m", in, "-o", keep}, 2, "1020 StyleFilm takes no materials, 1 given"},
        {{"apply", "1020", in, "--tables", path("notes.txt"), "-o", keep}, 2,
         "1020 StyleFilm takes no blend table set\nTry 'qtzq apply --help'."},
        {{"apply", "1044", in, "-m", path("missing.png"), "-o", keep}, 1, path("missing.png") + ": cannot open file"},
        {{"apply", "1031", in, "--tables", path("notes.txt"), "-o", keep}, 1,
         "qtzq apply: " + path("notes.txt") + ": 5 bytes; a blend table set has 196618\n"},
        {{"apply", "1043", in, "-m", small, "--exact-size", "-o", keep}, 1,
         small + ": material is 10x10 but " + in + " is 20x20"},
        {{"apply", "1020", in, "-o", path("keep.gif")}, 2, "unknown image type"},
        {{"apply", "1020", in, in, "-o", keep}, 2, "-o takes one INPUT"},
        {{"apply", "1020", in, path("./in.png"), "--out-dir", path("d")}, 2, "two INPUTs would both be written"},
        {{"apply", "1020", in, "-o", keep, "--quality", "101"}, 2, "--quality wants a whole number from 1 to 100"},
        {{"apply", "--bogus"}, 2, "qtzq apply: "},
        {{}, 2, "usage: qtzq COMMAND"},
        {{"frobnicate"}, 2, "unknown command 'frobnicate'"},
        {{"gallery"}, 2, "needs -o DIR"},
        {{"gallery", "-o", path("d"), "--columns", "0"}, 2, "--columns"},
        {{"list", "extra"}, 2, "unexpected argument 'extra'"},
        {{"material", "clouds", "4", "4", "-o", keep}, 2, "unknown material kind 'clouds'"},
        {{"material", "snow", "0", "4", "-o", keep}, 2, "WIDTH must be a whole number"},
        {{"material", "snow", "4", "4", "--base", "pink", "-o", keep}, 2, "--base must be black"},
        {{"tables", "screen", "dodge", "normal", "-o", keep}, 2,
         "unknown blend mode 'dodge' (see 'qtzq tables --help')"},
        {{"tables", "screen", "normal:1.5", "normal", "-o", keep}, 2, "opacity of 'normal:1.5'"},
        {{"tables", "screen", "normal", "-o", keep}, 2, "needs three modes"},
        {{"tables", "--for", "1020", "-o", keep}, 2, "1020 StyleFilm takes no blend table set"},
        {{"frame", path("cut.bin"), in, "-o", keep}, 1,
         path("cut.bin") + ": the record of the top-left piece is cut off"},
        {{"make-frame", path("notes.txt"), none, none, none, none, none, none, none, "-o", keep}, 1,
         path("notes.txt") + ": not a PNG file"},
        {{"make-frame", none, none, "-o", keep}, 2, "needs eight pieces"},
        {{"make-frame", none, none, none, none, none, none, none, none, "--insets", "1,2,3", "-o", keep}, 2,
         "--insets wants 2 or 8 numbers"},
    };
    for (const auto& [args, status, message] : cases) {
        const std::string what = args.empty() ? "(none)" : args[0] + " " + message;
        const RunResult result = run(args);
        EXPECT_EQ(result.status, status) << what;
        EXPECT_NE(result.err.find(message), std::string::npos) << what << "\n" << result.err;
        EXPECT_EQ(slurp(keep), "previous result") << what;
    }
    EXPECT_FALSE(fs::exists(path("d")));
    for (const auto& entry : fs::directory_iterator(dir_))
        EXPECT_NE(entry.path().extension(), ".tmp") << "left behind: " << entry.path();
}

}  // namespace
}  // namespace qtzq_tool_test
