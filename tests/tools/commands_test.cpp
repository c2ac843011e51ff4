// The other commands end to end (gallery, list, material, tables; frame
// and make-frame are compared with the library by the Python suite), and
// every kind of mistake: its exit status, its message, and outputs left as
// they were.
#include <sstream>
#include <tuple>

#include "qtzq_app/catalogue.h"
#include "qtzq_app/colour_lut.h"
#include "qtzq_app/effect_runner.h"
#include "qtzq_app/exif.h"
#include "qtzq_app/image_file.h"
#include "qtzq_app/orientation.h"
#include "qtzq_app/materials.h"
#include "qtzq_app/strength.h"
#include "tools/tool_harness.h"

namespace qtzq_tool_test {
namespace {

using CommandTest = ToolTest;

TEST_F(CommandTest, GalleryHasEveryEffectAndItsMaterialsListAndHelpAnswer) {
    save_png("photo.png", sample_photo(90, 30));
    run_ok({"gallery", path("photo.png"), "-o", path("g"), "--max-size", "45", "-j", "3"});
    const std::string html = slurp(path("g/index.html")), list = run({"list", "--tsv"}).out;
    for (const auto& info : qtzq_app::catalogue()) {
        const std::string file = std::to_string(info.id) + "-" + info.preset;
        EXPECT_EQ(load_png("g/" + file + ".png").width, 45) << file;  // the photo shrunk first
        EXPECT_NE(html.find("src=\"" + file + ".png\""), std::string::npos) << file;
        EXPECT_NE(list.find(std::to_string(info.id) + "\t" + info.preset + "\t"),
                  std::string::npos);
        for (std::size_t slot = 0; slot < info.materials.size(); ++slot)
            EXPECT_TRUE(fs::exists(path("g/materials/" + file + "-" + std::to_string(slot + 1) +
                                        "-" + info.materials[slot].fallback.kind + ".png")));
    }
    EXPECT_EQ(load_png("g/original.png").height, 15);
    EXPECT_TRUE(fs::exists(path("g/contact-sheet.png")));
    for (const std::string command :
         {"list", "apply", "gallery", "material", "tables", "frame", "make-frame", "lut"})
        EXPECT_EQ(run({command, "--help"}).out.rfind("usage: qtzq " + command, 0), 0u) << command;
}

TEST_F(CommandTest, MaterialsAreTheGeneratedOnes) {
    run_ok({"material", "stars", "40", "30", "--seed", "7", "--base", "white", "-o",
            path("m.png")});
    EXPECT_EQ(load_png("m.png").pixels,
              qtzq_app::make_material("stars", 40, 30, 7, qtzq_app::MaterialBase::White).pixels);
}

// The look's tables as the library module builds them, and a weaker look
// as the mix of the photo and the full one.
TEST_F(CommandTest, LutFilesAndStrengthAreTheApplicationLibrarysOwn) {
    const qtzq_app::EffectInfo& film = *qtzq_app::find_effect("film");
    run_ok({"lut", "film", "--level", "2", "-o", path("hald.png")});
    EXPECT_EQ(load_png("hald.png").pixels, qtzq_app::hald_clut(film, 2).pixels);
    run_ok({"lut", "1020", "--size", "2", "-o", path("film.cube")});
    std::ostringstream cube;
    qtzq_app::write_cube(cube, qtzq_app::cube_table(qtzq_app::hald_clut(film, 16), 2), 2,
                         "1020 StyleFilm");
    EXPECT_EQ(slurp(path("film.cube")), cube.str());

    const BgraImage photo = sample_photo(31, 9);
    save_png("in.png", photo);
    run_ok({"apply", "film", path("in.png"), "--strength", "40", "-o", path("out.png")});
    BgraImage full = photo;
    std::vector<BgraImage> none;
    qtzq_app::run_effect(film, full, none, nullptr);
    qtzq_app::mix_strength(photo.pixels.data(), full.data(), full.pixels.size() / 4, 40);
    EXPECT_EQ(load_png("out.png").pixels, full.pixels);
}

// A photo stored sideways with orientation 6 comes out upright in every
// output format, with the input's metadata (orientation reset) unless
// --strip is given.
TEST_F(CommandTest, ApplyTurnsPhotosUprightAndCarriesTheirMetadata) {
    const BgraImage photo = sample_photo(12, 7, 5);
    qtzq_app::PhotoMetadata metadata;
    metadata.exif = {'M', 'M', 0, 42, 0, 0, 0, 8, 0, 1, 0x01, 0x12, 0, 3, 0, 0, 0, 1, 0, 6, 0, 0,
                     0, 0, 0, 0};
    metadata.xmp = {'<', 'x', '/', '>'};
    std::string error;
    ASSERT_TRUE(qtzq_app::write_photo(path("in.png"), qtzq_app::upright(photo, 8), metadata, {},
                                      error)) << error;
    BgraImage film = photo;
    std::vector<BgraImage> none;
    qtzq_app::run_effect(*qtzq_app::find_effect("film"), film, none, nullptr);
    for (const std::string out : {"out.png", "out.webp", "out.tif"}) {
        for (const bool strip : {false, true}) {
            std::vector<std::string> args = {"apply", "film", path("in.png"), "-o", path(out),
                                              "--lossless"};
            if (strip) args.push_back("--strip");
            run_ok(args);
            qtzq_app::Photo back;
            ASSERT_TRUE(qtzq_app::read_photo(path(out), back, error)) << error;
            EXPECT_EQ(back.image.pixels, film.pixels) << out;
            const bool has_exif = out != "out.tif" && !strip;
            EXPECT_EQ(back.metadata.exif, has_exif ? qtzq_app::exif_for_output(metadata.exif)
                                                   : std::vector<unsigned char>()) << out;
            EXPECT_EQ(back.metadata.xmp.empty(), strip) << out;
        }
    }
}

// Usage mistakes exit with status 2, failures while working with 1; both
// name the problem on stderr and leave existing outputs alone.
TEST_F(CommandTest, MistakesExitWithTheirStatusAndMessageAndTouchNothing) {
    save_text("keep.png", "previous result");
    save_text("notes.txt", "hello");
    save_text("cut.bin", std::string(90, '\0').replace(80, 1, "\x01"));
    save_png("in.png", sample_photo(20, 20));
    save_png("small.png", sample_photo(10, 10));
    const std::string in = path("in.png"), keep = path("keep.png"), small = path("small.png");
    const std::string notes = path("notes.txt"), missing = path("missing.png"), no = "-";
    const std::vector<std::tuple<std::vector<std::string>, int, std::string>> cases = {
        {{"apply", "1020", missing, "-o", keep}, 1, "apply: " + missing + ": cannot open file ("},
        {{"apply", "1020", notes, "-o", keep}, 1, notes + ": not a PNG, JPEG, WebP, TIFF, HEIF or AVIF file"},
        {{"apply", "nope", in, "-o", keep}, 2, "unknown effect 'nope'"},
        {{"apply", "1044", in, "-m", in, "-m", in, "-o", keep}, 2, "1 material(s), 2 given"},
        {{"apply", "1020", in, "--tables", notes, "-o", keep}, 2,
         "qtzq apply: 1020 StyleFilm takes no blend table set\nTry 'qtzq apply --help'.\n"},
        {{"apply", "1031", in, "--tables", notes, "-o", keep}, 1,
         "qtzq apply: " + notes + ": 5 bytes; a blend table set has 196618\n"},
        {{"apply", "1043", in, "-m", small, "--exact-size", "-o", keep}, 1,
         small + ": material is 10x10 but " + in + " is 20x20"},
        {{"apply", "1020", in, "-o", path("keep.gif")}, 2, "unknown image type"},
        {{"apply", "1020", in, in, "-o", keep}, 2, "-o takes one INPUT"},
        {{"apply", "1020", in, "--strength", "101", "-o", keep}, 2, "--strength wants a whole"},
        {{"lut", "1021", "-o", keep}, 2, "1021 StyleRetro adds random grain"},
        {{"lut", "1044", "-o", keep}, 2, "1044 StyleLomoNight blends material images"},
        {{"lut", "1035", "-o", keep}, 2, "1035 StyleLomoHDR looks at other pixels"},
        {{"lut", "film", "-o", path("keep.gif")}, 2, "use .cube or .png"},
        {{"lut", "film", "--size", "1", "-o", path("k.cube")}, 2, "--size wants a whole number from 2"},
        {{"apply", "1020", in, path("./in.png"), "--out-dir", path("d")}, 2, "would both be"},
        {{}, 2, "usage: qtzq COMMAND"},
        {{"material", "snow", "4", "4", "--base", "pink", "-o", keep}, 2, "--base must be black"},
        {{"tables", "screen", "dodge", "normal", "-o", keep}, 2,
         "unknown blend mode 'dodge' (see 'qtzq tables --help')"},
        {{"tables", "screen", "normal:1.5", "normal", "-o", keep}, 2, "opacity of 'normal:1.5'"},
        {{"tables", "--for", "1020", "-o", keep}, 2, "1020 StyleFilm takes no blend table set"},
        {{"frame", path("cut.bin"), in, "-o", keep}, 1,
         path("cut.bin") + ": the record of the top-left piece is cut off"},
        {{"make-frame", notes, no, no, no, no, no, no, no, "-o", keep}, 1, ": not a PNG file"},
        {{"make-frame", no, no, no, no, no, no, no, no, "--insets", "1,2,3", "-o", keep}, 2,
         "--insets wants 2 or 8"},
    };
    for (const auto& [args, status, message] : cases) {
        const RunResult result = run(args);
        EXPECT_EQ(result.status, status) << message;
        EXPECT_NE(result.err.find(message), std::string::npos) << message << "\n" << result.err;
        EXPECT_EQ(slurp(keep), "previous result") << message;
    }
    EXPECT_FALSE(fs::exists(path("d")));
    for (const auto& entry : fs::directory_iterator(dir_))
        EXPECT_NE(entry.path().extension(), ".tmp") << "left behind: " << entry.path();
}

}  // namespace
}  // namespace qtzq_tool_test
