// Runs golden cases and collects their digests.
#ifndef QTZQ_TESTS_GOLDEN_RUNNER_H
#define QTZQ_TESTS_GOLDEN_RUNNER_H

#include <iosfwd>
#include <string>

#include "case_list.h"
#include "digest_list.h"

namespace qtzq_golden {

// rand() is reseeded with this before every case, so that a case's digest
// does not depend on which cases ran before it.
constexpr unsigned int kCaseSeed = 12345;

struct RunOptions {
    std::string filter;    // run only cases whose name contains this
    std::string dump_dir;  // if set, write each case's raw output to DIR/NAME.bin
};

bool selected(const std::string& name, const RunOptions& options);

// Runs the selected cases in registration order; logs slow cases and the
// total time to `log`.
DigestList run_cases(const CaseList& list, const RunOptions& options, std::ostream& log);

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_RUNNER_H
