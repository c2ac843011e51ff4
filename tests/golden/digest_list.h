// The committed digest list: one "case-name digest" line per case, sorted by
// name, under a comment header ('#' lines) that says how to regenerate it.
#ifndef QTZQ_TESTS_GOLDEN_DIGEST_LIST_H
#define QTZQ_TESTS_GOLDEN_DIGEST_LIST_H

#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qtzq_golden {

using DigestList = std::map<std::string, std::string>;  // name -> hex digest

// Parses a list; '#' lines and blank lines are skipped. A malformed line
// or a name given twice throws std::runtime_error naming the line.
DigestList parse_digest_list(std::istream& in);

// Writes the header and one line per case, sorted by name.
void write_digest_list(std::ostream& out, const DigestList& digests);

// What differs between the committed list and this run, one line each:
//   "changed NAME: listed D1, computed D2"
//   "new NAME: not in the list"
//   "gone NAME: listed, no longer computed"
// Names in `skipped` are neither new nor gone. Empty when both agree.
std::vector<std::string> compare_digests(const DigestList& listed, const DigestList& computed,
                                         const std::set<std::string>& skipped);

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_DIGEST_LIST_H
