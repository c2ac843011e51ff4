// The digest check itself: a list file that silently dropped, added or
// misread cases would pass the golden test while checking less.
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "golden.h"

namespace {

using namespace qtzq_golden;

const std::string kA(64, 'a'), kB(64, 'b'), kC(64, 'c');

TEST(DigestList, WriteThenParseRoundTrips) {
    const DigestList digests = {{"styles.StyleFilm", kA}, {"facade.sample", kB}};
    std::ostringstream out;
    write_digest_list(out, digests);
    std::istringstream in(out.str());
    EXPECT_EQ(parse_digest_list(in), digests);
}

TEST(DigestList, RejectsMalformedAndRepeatedLines) {
    for (const std::string& bad : {std::string("name\n"), std::string("name short\n"),
                                   "name " + kA + " extra\n", "x " + kA + "\nx " + kB + "\n"}) {
        std::istringstream in(bad);
        EXPECT_THROW(parse_digest_list(in), std::runtime_error) << bad;
    }
}

TEST(DigestList, CompareNamesEveryKindOfDifference) {
    const DigestList listed = {{"same", kA}, {"changed", kA}, {"gone", kA}, {"skipped", kA}};
    const DigestList computed = {{"same", kA}, {"changed", kB}, {"new", kC}};
    const std::vector<std::string> expected = {"changed changed: listed " + kA + ", computed " + kB,
                                               "new new: not in the list",
                                               "gone gone: listed, no longer computed"};
    EXPECT_EQ(compare_digests(listed, computed, {"skipped"}), expected);
    EXPECT_TRUE(compare_digests(listed, listed, {}).empty());
}

}  // namespace
