#include "case_list.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "families.h"
#include "runner.h"

namespace {

using namespace qtzq_golden;

const std::vector<Exclusion> kNoExclusions;

void nothing(Recorder&) {}

TEST(CaseList, RefusesBadAndRepeatedNames) {
    CaseList list(kNoExclusions);
    list.add("pixel.ScreenEx", Needs::nothing, nothing);
    EXPECT_THROW(list.add("pixel.ScreenEx", Needs::nothing, nothing), std::invalid_argument);
    EXPECT_THROW(list.add("", Needs::nothing, nothing), std::invalid_argument);
    EXPECT_THROW(list.add("two words", Needs::nothing, nothing), std::invalid_argument);
    EXPECT_THROW(list.add("hash#name", Needs::nothing, nothing), std::invalid_argument);
    EXPECT_EQ(list.cases().size(), 1u);
}

TEST(CaseList, ExcludedCasesAreSkippedWithTheirReason) {
    CaseList list(std::vector<Exclusion>{{"styles.StyleRetro", "reseeds rand() from the clock"}});
    list.add("styles.StyleRetro", Needs::rand, nothing);
    list.add("styles.StyleRetro.other", Needs::nothing, nothing);
    ASSERT_EQ(list.skipped().size(), 1u);
    EXPECT_EQ(list.skipped()[0].name, "styles.StyleRetro");
    EXPECT_EQ(list.skipped()[0].reason, "reseeds rand() from the clock");
    ASSERT_EQ(list.cases().size(), 1u);
    EXPECT_EQ(list.cases()[0].name, "styles.StyleRetro.other");
    // An excluded name cannot come back as a case either.
    EXPECT_THROW(list.add("styles.StyleRetro", Needs::nothing, nothing), std::invalid_argument);
}

DigestList run_quietly(const CaseList& list, const RunOptions& options = {}) {
    std::ostringstream log;
    return run_cases(list, options, log);
}

// A digest depends on every output byte and on integer results, and on
// nothing that ran before (rand() is reseeded per case).
TEST(Runner, DigestsFollowOutputsAndResultsOnly) {
    CaseList list(kNoExclusions);
    image_case(list, "darken_one", [](unsigned char* p, int, int) { p[0] ^= 1; });
    image_case(list, "darken_one_again", [](unsigned char* p, int, int) { p[0] ^= 1; });
    image_case(list, "same_but_returns", [](unsigned char* p, int, int) {
        p[0] ^= 1;
        return 7;
    });
    image_case(list, "untouched", [](unsigned char*, int, int) {});
    custom_case(
        list, "draw_a", [](Recorder& out) { out.i32(std::rand()); }, Needs::rand);
    custom_case(
        list, "draw_b", [](Recorder& out) { out.i32(std::rand()); }, Needs::rand);

    const DigestList digests = run_quietly(list);
    ASSERT_EQ(digests.size(), 6u);
    EXPECT_EQ(digests.at("darken_one"), digests.at("darken_one_again"));
    EXPECT_NE(digests.at("darken_one"), digests.at("same_but_returns"));
    EXPECT_NE(digests.at("darken_one"), digests.at("untouched"));
    EXPECT_EQ(digests.at("draw_a"), digests.at("draw_b"));

    RunOptions only;
    only.filter = "again";
    const DigestList filtered = run_quietly(list, only);
    ASSERT_EQ(filtered.size(), 1u);
    EXPECT_EQ(filtered.at("darken_one_again"), digests.at("darken_one"));
}

// A blend sees every opacity, and a write to the blend pixel shows.
TEST(Runner, BlendCasesRunEveryOpacityAndWatchTheBlend) {
    CaseList list(kNoExclusions);
    int calls = 0;
    blend_case(list, "reads", [&calls](unsigned char* a, unsigned char* b, double) {
        ++calls;
        a[0] = b[0];
    });
    blend_case(list, "writes_blend", [](unsigned char* a, unsigned char* b, double) {
        a[0] = b[0];
        b[3] = 0;
    });
    const DigestList digests = run_quietly(list);
    EXPECT_EQ(calls, 65536 * static_cast<int>(std::size(kBlendOpacities)));
    EXPECT_NE(digests.at("reads"), digests.at("writes_blend"));
}

// Parameter values in case names are short and the same everywhere.
TEST(CaseNames, LabelsAreShortestForm) {
    EXPECT_EQ(label(0.5), "0.5");
    EXPECT_EQ(label(-3), "-3");
    EXPECT_EQ(label(0.35f), "0.35");
    EXPECT_EQ(label(1e10), "1e+10");
}

}  // namespace
