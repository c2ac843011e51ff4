// The golden cases: named runs of library functions on the fixed inputs,
// each reduced to one digest.
#ifndef QTZQ_TESTS_GOLDEN_CASE_LIST_H
#define QTZQ_TESTS_GOLDEN_CASE_LIST_H

#include <functional>
#include <string>
#include <vector>

#include "recorder.h"

namespace qtzq_golden {

// What a case depends on beyond its inputs.
enum class Needs {
    nothing,
    // The C library's rand() sequence (after the runner's fixed srand).
    // glibc's generator is the same on x86-64 and armhf, so the committed
    // digests hold for both; with another C library these cases are skipped.
    rand,
};

struct GoldenCase {
    std::string name;
    Needs needs;
    std::function<void(Recorder&)> run;
};

// A case left out on purpose, by exact name, with the reason.
struct Exclusion {
    std::string name;
    std::string reason;
};

// Cases left out of every run (see case_list.cpp for the current list).
const std::vector<Exclusion>& default_exclusions();

class CaseList {
   public:
    explicit CaseList(std::vector<Exclusion> exclusions = default_exclusions());

    // Registers a case. Names are unique, non-empty and free of white space
    // (they are the keys of the digest list); a bad name throws
    // std::invalid_argument. An excluded case, or a rand() case on a C
    // library other than glibc, is recorded as skipped instead.
    void add(const std::string& name, Needs needs, std::function<void(Recorder&)> run);

    const std::vector<GoldenCase>& cases() const { return cases_; }
    // Cases not run, with the reason.
    const std::vector<Exclusion>& skipped() const { return skipped_; }

   private:
    bool known(const std::string& name) const;

    std::vector<Exclusion> exclusions_;
    std::vector<GoldenCase> cases_;
    std::vector<Exclusion> skipped_;
};

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_CASE_LIST_H
