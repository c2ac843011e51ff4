// The tool's own parts: argument parsing, parallel runs, the bitmap font,
// the contact sheet and the gallery page.
#include <algorithm>
#include <atomic>
#include <cstring>

#include "args.h"
#include "bitmap_font.h"
#include "contact_sheet.h"
#include "html_index.h"
#include "parallel.h"
#include "tools/tool_harness.h"

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
    for (const std::vector<std::string>& wrong :
         {std::vector<std::string>{"--bogus"}, {"-o"}, {"-o", "a", "-o", "b"}, {"--quiet=yes"}})
        EXPECT_THROW(parse_args(wrong, options), UsageError) << wrong[0];
    EXPECT_THROW(parse_args({"--output", "12x"}, options).int_value("output", 0, 0, 100), UsageError);
}

TEST(Parallel, EveryTaskRunsExactlyOnce) {
    for (const unsigned jobs : {1u, 2u, 5u, 64u}) {
        std::vector<std::atomic<int>> runs(37);
        run_parallel(runs.size(), jobs, [&](std::size_t i) { ++runs[i]; });
        for (const auto& count : runs) EXPECT_EQ(count.load(), 1) << jobs;
    }
    run_parallel(0, 4, [](std::size_t) { FAIL(); });
}

TEST(BitmapFont, GlyphsMeasureAndClip) {
    // '1': a vertical stroke in the middle column, 7 rows high.
    for (int row = 0; row < 7; ++row) EXPECT_TRUE(glyph_pixel('1', 2, row));
    EXPECT_FALSE(glyph_pixel('1', 2, 7));
    EXPECT_TRUE(glyph_pixel('g', 1, 7));  // descender
    EXPECT_EQ(text_width("abc", 2), 34);
    EXPECT_EQ(fit_text("abcdefghij", text_width("abcdef", 1), 1), "abc...");
    BgraImage image(4, 4);
    draw_text(image, -3, -3, "W", {255, 0, 0}, 2);  // clipped, must not write outside
    EXPECT_NE(std::count(image.pixels.begin(), image.pixels.end(), 255), 0);
}

TEST(ContactSheet, GridOfThumbnailsWithLabelsUnderATitle) {
    const BgraImage photo = opaque(sample_photo(40, 20));
    std::vector<SheetEntry> entries(7, SheetEntry{&photo, "1020 StyleFilm", "film", false});
    SheetLayout layout;
    layout.thumb_width = 30;
    layout.columns = 3;
    const BgraImage sheet = make_contact_sheet("title", entries, layout);
    // 3 columns of 30 with 12-pixel gaps and margins; 3 rows of a 15-pixel
    // thumbnail and a 24-pixel label, under a 16 + 12 pixel title.
    EXPECT_EQ(sheet.width, 12 + 3 * 30 + 2 * 12 + 12);
    EXPECT_EQ(sheet.height, 12 + 28 + 3 * (15 + 24) + 2 * 12 + 12);
    // The thumbnail of entry 4 (row 1, column 1) is the photo shrunk 4:3.
    const BgraImage thumb = make_contact_sheet("", {entries[0]}, layout);
    EXPECT_EQ(std::memcmp(sheet.at(12 + 42, 12 + 28 + 39 + 12), thumb.at(12, 12 + 28), 4 * 30), 0);
}

TEST(HtmlIndex, EscapesEveryTextAndLinksEveryImage) {
    EXPECT_EQ(html_escape("a<b>&\"c'"), "a&lt;b&gt;&amp;&quot;c&#39;");
    const std::string html = make_index_html(
        "t<1>", "sheet.png",
        {{"1044 StyleLomoNight", "night", "1044.png", "note & more", {{"material 1", "m/1.png"}}}});
    for (const char* part : {"<title>t&lt;1&gt;</title>", "<img src=\"1044.png\"", "note &amp; more",
                             "<a href=\"m/1.png\">material 1</a>", "href=\"sheet.png\""})
        EXPECT_NE(html.find(part), std::string::npos) << part;
}

}  // namespace
}  // namespace qtzq_tool_test
