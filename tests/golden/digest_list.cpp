#include "digest_list.h"

#include <istream>
#include <ostream>
#include <sstream>
#include <stdexcept>

namespace qtzq_golden {

namespace {

const char kHeader[] =
    "# Golden digests of libQtzqeffect: SHA-256 of everything each case in\n"
    "# tests/golden/*_cases.cpp produces from the fixed inputs of inputs.cpp.\n"
    "# The same list must pass on x86-64 (gcc and clang, -O0 to -O3 -march=native)\n"
    "# and on 32-bit ARM under qemu: scripts/golden-matrix.sh and\n"
    "# scripts/cross-test-armhf.sh run it there.\n"
    "#\n"
    "# Generated, not edited. After a change that is meant to change results\n"
    "# (or adds cases), regenerate it with\n"
    "#     cmake --build <build-dir> --target update-golden\n"
    "# and review the diff: every changed line is a function whose output\n"
    "# changed. One line per case: name, digest; sorted by name.\n";

}  // namespace

DigestList parse_digest_list(std::istream& in) {
    DigestList digests;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        std::string name, digest, extra;
        if (!(fields >> name >> digest) || (fields >> extra) || digest.size() != 64) {
            throw std::runtime_error("digest list line " + std::to_string(number) +
                                     " is not 'name digest': " + line);
        }
        if (!digests.emplace(name, digest).second) {
            throw std::runtime_error("digest list line " + std::to_string(number) +
                                     " repeats case " + name);
        }
    }
    return digests;
}

void write_digest_list(std::ostream& out, const DigestList& digests) {
    out << kHeader;
    for (const auto& [name, digest] : digests) out << name << ' ' << digest << '\n';
}

std::vector<std::string> compare_digests(const DigestList& listed, const DigestList& computed,
                                         const std::set<std::string>& skipped) {
    std::vector<std::string> problems;
    for (const auto& [name, digest] : computed) {
        const auto entry = listed.find(name);
        if (entry == listed.end()) {
            problems.push_back("new " + name + ": not in the list");
        } else if (entry->second != digest) {
            problems.push_back("changed " + name + ": listed " + entry->second + ", computed " +
                               digest);
        }
    }
    for (const auto& [name, digest] : listed) {
        if (!computed.count(name) && !skipped.count(name))
            problems.push_back("gone " + name + ": listed, no longer computed");
    }
    return problems;
}

}  // namespace qtzq_golden
