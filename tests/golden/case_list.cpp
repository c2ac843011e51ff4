#include "case_list.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>
#include <utility>

namespace qtzq_golden {

const std::vector<Exclusion>& default_exclusions() {
    // Nothing is excluded today. The presets that reseed rand() from the
    // clock (StyleLiuJin, StyleRetro, effect ids 1039 and 1021) run against
    // the fixed clock of fixed_clock.cpp instead, so their results are
    // reproducible. A case that cannot be made reproducible goes here as
    // {"exact.case.name", "why"}; the runner lists it as skipped.
    static const std::vector<Exclusion> exclusions = {};
    return exclusions;
}

CaseList::CaseList(std::vector<Exclusion> exclusions) : exclusions_(std::move(exclusions)) {}

bool CaseList::known(const std::string& name) const {
    const auto same = [&](const auto& entry) { return entry.name == name; };
    return std::any_of(cases_.begin(), cases_.end(), same) ||
           std::any_of(skipped_.begin(), skipped_.end(), same);
}

void CaseList::add(const std::string& name, Needs needs, std::function<void(Recorder&)> run) {
    const bool has_space = std::any_of(
        name.begin(), name.end(), [](unsigned char c) { return std::isspace(c) != 0 || c == '#'; });
    if (name.empty() || has_space)
        throw std::invalid_argument("bad golden case name '" + name + "'");
    if (known(name)) throw std::invalid_argument("golden case '" + name + "' registered twice");

    const auto excluded = std::find_if(exclusions_.begin(), exclusions_.end(),
                                       [&](const Exclusion& e) { return e.name == name; });
    if (excluded != exclusions_.end()) {
        skipped_.push_back(*excluded);
        return;
    }
#if !defined(__GLIBC__)
    if (needs == Needs::rand) {
        skipped_.push_back({name, "depends on the rand() sequence; the digests are glibc's"});
        return;
    }
#endif
    cases_.push_back({name, needs, std::move(run)});
}

}  // namespace qtzq_golden
