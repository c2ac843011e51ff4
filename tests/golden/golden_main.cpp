// qtzq_golden: runs every golden case and checks or rewrites the digest list.
//
//   qtzq_golden --check LIST [--filter TEXT]   exit 1 unless every digest (of the
//                                              cases whose name contains TEXT) matches
//   qtzq_golden --write LIST                   rewrite LIST from this run
//
// With --reference anywhere on the line the library runs on its scalar
// reference paths (no vector kernels, no fast paths): the same digests must
// come out, so the reference paths stay pinned too.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "golden.h"
#include "simd/vector_unit.h"

using namespace qtzq_golden;

// The program is linked with -Wl,--wrap=time, so every call to time() made
// by the library or the cases returns this fixed clock, 2010-01-01 00:00:00
// UTC: presets that reseed rand() from the clock draw the same sequence on
// every run and platform.
constexpr std::time_t kFixedClock = 1262304000;
extern "C" std::time_t __wrap_time(std::time_t* out) {
    if (out) *out = kFixedClock;
    return kFixedClock;
}

namespace {

// Runs the cases whose name contains filter, reseeding rand() before each so
// that no digest depends on the cases before it; rand() cases are skipped
// off glibc, whose sequence the list holds.
DigestList run_cases(const std::string& filter, std::set<std::string>& skipped) {
    DigestList digests;
    const auto start = std::chrono::steady_clock::now();
    for (const Case& c :
         Cases{facade_cases(), pixel_cases(), blur_cases(), styles_cases(), frame_cases()}) {
        if (c.name.empty() || c.name.find_first_of(" \t#") != std::string::npos ||
            digests.count(c.name) || skipped.count(c.name))
            throw std::invalid_argument("bad or repeated golden case name '" + c.name + "'");
#if !defined(__GLIBC__)
        if (c.needs == Needs::rand) {
            std::cout << "skipped " << c.name << ": depends on glibc's rand() sequence\n";
            skipped.insert(c.name);
            continue;
        }
#endif
        if (c.name.find(filter) == std::string::npos) continue;
        Recorder out;
        std::srand(12345);
        c.run(out);
        digests[c.name] = out.hex_digest();
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    std::cout << digests.size() << " golden cases run in " << took.count() << " s\n";
    return digests;
}

int check(const std::string& path, const std::string& filter) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path);
    DigestList listed;
    for (const auto& [name, digest] : parse_digest_list(file))
        if (name.find(filter) != std::string::npos) listed.emplace(name, digest);
    std::set<std::string> skipped;
    const DigestList computed = run_cases(filter, skipped);
    const auto problems = compare_digests(listed, computed, skipped);
    for (const std::string& problem : problems) std::cout << problem << '\n';
    if (problems.empty()) {
        std::cout << computed.size() << " golden digests match " << path << '\n';
        return 0;
    }
    std::cout << problems.size() << " of " << computed.size() << " golden digests differ from "
              << path << ".\nIf the change is intended, regenerate the list (cmake --build "
              << "<build-dir> --target update-golden) and review the diff.\n";
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        std::vector<std::string> args(argv + 1, argv + argc);
        const auto reference = std::find(args.begin(), args.end(), "--reference");
        const bool on_reference_paths = reference != args.end();
        if (on_reference_paths) args.erase(reference);
        qtzq::ScopedVectorUnitLimit limit(on_reference_paths ? qtzq::VectorUnit::kScalar
                                                             : qtzq::VectorUnit::kAvx2);
        if (std::time(nullptr) != kFixedClock)
            throw std::runtime_error("time() is not the fixed clock: link with -Wl,--wrap=time");
        if (args.size() == 2 && args[0] == "--write") {
            std::set<std::string> skipped;
            std::ofstream file(args[1]);
            write_digest_list(file, run_cases("", skipped));
            if (!file) throw std::runtime_error("cannot write " + args[1]);
            return 0;
        }
        if ((args.size() == 2 || (args.size() == 4 && args[2] == "--filter")) &&
            args[0] == "--check")
            return check(args[1], args.size() == 4 ? args[3] : "");
        throw std::invalid_argument(
            "usage: qtzq_golden --check LIST [--filter TEXT] | --write LIST  [--reference]");
    } catch (const std::exception& error) {
        std::cerr << "qtzq_golden: " << error.what() << '\n';
        return 2;
    }
}
