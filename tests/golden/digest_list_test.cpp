#include "digest_list.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace {

using namespace qtzq_golden;

const std::string kA(64, 'a');
const std::string kB(64, 'b');
const std::string kC(64, 'c');

TEST(DigestList, WriteThenParseRoundTripsSortedWithHeader) {
    const DigestList digests = {{"styles.StyleFilm", kA}, {"facade.sample", kB}};
    std::ostringstream out;
    write_digest_list(out, digests);
    const std::string text = out.str();
    EXPECT_EQ(text.rfind("# ", 0), 0u);
    EXPECT_NE(text.find("--target update-golden"), std::string::npos);
    EXPECT_LT(text.find("facade.sample"), text.find("styles.StyleFilm"));

    std::istringstream in(text);
    EXPECT_EQ(parse_digest_list(in), digests);
}

TEST(DigestList, RejectsMalformedAndRepeatedLines) {
    const std::string bad_lists[] = {"name\n", "name short\n", "name " + kA + " extra\n",
                                     "x " + kA + "\nx " + kB + "\n"};
    for (const std::string& bad : bad_lists) {
        std::istringstream in(bad);
        EXPECT_THROW(parse_digest_list(in), std::runtime_error) << bad;
    }
    std::istringstream ok("# comment\n\nx " + kA + "\n");
    EXPECT_EQ(parse_digest_list(ok).size(), 1u);
}

TEST(DigestList, CompareNamesEveryKindOfDifference) {
    const DigestList listed = {{"same", kA}, {"changed", kA}, {"gone", kA}, {"skipped", kA}};
    const DigestList computed = {{"same", kA}, {"changed", kB}, {"new", kC}};
    const auto problems = compare_digests(listed, computed, {"skipped"});
    ASSERT_EQ(problems.size(), 3u);
    EXPECT_EQ(problems[0], "changed changed: listed " + kA + ", computed " + kB);
    EXPECT_EQ(problems[1], "new new: not in the list");
    EXPECT_EQ(problems[2], "gone gone: listed, no longer computed");
    EXPECT_TRUE(compare_digests(listed, listed, {}).empty());
}

}  // namespace
