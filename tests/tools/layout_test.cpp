// Gallery page and sheet layout, parallel runs, and pinned material bytes.
#include <atomic>
#include <cstdint>
#include <cstring>

#include "contact_sheet.h"
#include "html_index.h"
#include "materials.h"
#include "parallel.h"
#include "tool_harness.h"

namespace qtzq_tool_test {
namespace {

using namespace qtzq_cli;

std::uint32_t fnv1a(const std::vector<unsigned char>& bytes) {
    std::uint32_t hash = 2166136261u;
    for (const unsigned char b : bytes) hash = (hash ^ b) * 16777619u;
    return hash;
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
        {{"1020 StyleFilm", "film", "1020-StyleFilm.png", "", {}},
         {"1044 StyleLomoNight", "night", "1044.png", "note & more", {{"material 1", "m/1.png"}}}});
    EXPECT_NE(html.find("<title>t&lt;1&gt;</title>"), std::string::npos);
    EXPECT_NE(html.find("<img src=\"1020-StyleFilm.png\""), std::string::npos);
    EXPECT_NE(html.find("note &amp; more"), std::string::npos);
    EXPECT_NE(html.find("<a href=\"m/1.png\">material 1</a>"), std::string::npos);
    EXPECT_NE(html.find("href=\"sheet.png\""), std::string::npos);
}

TEST(Parallel, EveryTaskRunsExactlyOnce) {
    for (const unsigned jobs : {1u, 2u, 5u, 64u}) {
        std::vector<std::atomic<int>> runs(37);
        run_parallel(runs.size(), jobs, [&](std::size_t i) { ++runs[i]; });
        for (const auto& count : runs) EXPECT_EQ(count.load(), 1) << jobs;
    }
    run_parallel(0, 4, [](std::size_t) { FAIL(); });
}

// The materials use integer hashing and plain arithmetic only, so their
// bytes are the same on every machine; these digests pin them.
TEST(Materials, BytesArePinned) {
    const std::vector<std::pair<std::string, std::uint32_t>> expected = {
        {"vignette", 2466139675u}, {"light-leak", 1575735579u}, {"grain", 3878207800u},
        {"paper", 1215311681u},    {"stars", 3272155882u},      {"snow", 3041245306u},
    };
    for (const auto& [kind, digest] : expected) {
        const MaterialBase base = find_material_kind(kind)->default_base;
        EXPECT_EQ(fnv1a(make_material(kind, 48, 32, 1, base).pixels), digest) << kind;
    }
}

}  // namespace
}  // namespace qtzq_tool_test
