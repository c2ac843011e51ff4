// qtzq gallery and qtzq list: one image per catalogue entry, the contact
// sheet and the index.
#include "catalogue.h"
#include "tool_harness.h"

namespace qtzq_tool_test {
namespace {

using GalleryTest = ToolTest;

TEST_F(GalleryTest, OneImagePerCatalogueEntryPlusSheetAndIndex) {
    save_png("photo.png", opaque(sample_photo(64, 40)));
    const RunResult result =
        run({"gallery", path("photo.png"), "-o", path("g"), "--thumb-width", "32", "-j", "3"});
    ASSERT_EQ(result.status, 0) << result.err;
    const std::string html = slurp(path("g/index.html"));
    std::size_t images = 0;
    for (const auto& entry : fs::directory_iterator(path("g")))
        if (entry.path().extension() == ".png") ++images;
    // Every effect, the original and the contact sheet.
    EXPECT_EQ(images, qtzq_cli::catalogue().size() + 2);
    for (const auto& info : qtzq_cli::catalogue()) {
        const std::string file = std::to_string(info.id) + "-" + info.preset + ".png";
        const BgraImage image = load_png("g/" + file);
        EXPECT_EQ(image.width, 64) << file;
        EXPECT_NE(html.find("src=\"" + file + "\""), std::string::npos) << file;
        for (std::size_t slot = 0; slot < info.materials.size(); ++slot)
            EXPECT_TRUE(fs::exists(path("g/materials/" + std::to_string(info.id) + "-" +
                                        info.preset + "-" + std::to_string(slot + 1) + "-" +
                                        info.materials[slot].fallback.kind + ".png")))
                << file;
    }
    EXPECT_EQ(load_png("g/original.png").pixels, opaque(sample_photo(64, 40)).pixels);
    const BgraImage sheet = load_png("g/contact-sheet.png");
    EXPECT_GT(sheet.width, 6 * 32);
    EXPECT_NE(result.out.find("effects on " + path("photo.png")), std::string::npos);
}

TEST_F(GalleryTest, LargePhotosAreShrunkFirst) {
    save_png("photo.png", sample_photo(90, 30));
    ASSERT_EQ(run({"gallery", path("photo.png"), "-o", path("g"), "--max-size", "45"}).status, 0);
    const BgraImage original = load_png("g/original.png");
    EXPECT_EQ(original.width, 45);
    EXPECT_EQ(original.height, 15);
}

TEST_F(GalleryTest, ListShowsEveryIdWithItsOverload) {
    const RunResult result = run({"list", "--tsv"});
    ASSERT_EQ(result.status, 0);
    std::size_t lines = 0;
    for (const char c : result.out) lines += c == '\n';
    EXPECT_EQ(lines, qtzq_cli::catalogue().size());
    EXPECT_NE(result.out.find("1020\tStyleFilm\tfilm\timage\t\t\tno\n"), std::string::npos);
    EXPECT_NE(result.out.find("1048\tStyleFenHongJiaRen\tpink beauty\t3 materials\t"),
              std::string::npos);
    EXPECT_NE(result.out.find("1021\tStyleRetro\tretro grain\timage\t\t\tyes\n"), std::string::npos);
}

TEST_F(GalleryTest, UsageMistakesExitWithStatusTwo) {
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{}, {"frobnicate"}, {"gallery"}, {"list", "extra"},
          {"gallery", "-o", path("g"), "--columns", "0"}, {"apply", "--bogus"}}) {
        const RunResult result = run(args);
        EXPECT_EQ(result.status, 2) << (args.empty() ? "" : args[0]);
        EXPECT_FALSE(result.err.empty());
    }
    for (const std::string command : {"list", "apply", "gallery", "material", "tables", "frame",
                                      "make-frame"}) {
        const RunResult result = run({command, "--help"});
        EXPECT_EQ(result.status, 0) << command;
        EXPECT_EQ(result.out.rfind("usage: qtzq " + command, 0), 0u) << result.out;
    }
}

}  // namespace
}  // namespace qtzq_tool_test
