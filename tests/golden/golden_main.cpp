// qtzq_golden: runs every golden case and checks, prints or rewrites the
// digest list.
//
//   qtzq_golden --check LIST     fail (exit 1) unless every digest matches LIST
//   qtzq_golden --write LIST     rewrite LIST from this run (all cases)
//   qtzq_golden --print          print "name digest" lines
//   qtzq_golden --dump DIR       write each case's raw output to DIR/NAME.bin,
//                                for comparing two platforms byte by byte
//   --filter TEXT                (with --check, --print, --dump) only the
//                                cases whose name contains TEXT
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "golden.h"

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

// rand() is reseeded with this before every case, so that a case's digest
// does not depend on which cases ran before it.
constexpr unsigned int kCaseSeed = 12345;
// A case slower than this is named (the emulated armhf run multiplies every
// time, and CI has a budget).
constexpr double kSlowCaseSeconds = 2.0;

// Cases left out on purpose, by exact name: {"case.name", "why"}. None
// today: the presets that reseed rand() from the clock run against the
// fixed clock instead.
const std::map<std::string, std::string> kExclusions = {};

struct Command {
    std::string mode, path, filter;  // mode: check, write, print, dump
    bool selected(const std::string& name) const {
        return filter.empty() || name.find(filter) != std::string::npos;
    }
};

Command parse_command(int argc, char** argv) {
    const char* usage =
        "usage: qtzq_golden [--filter TEXT] (--check LIST | --write LIST | --print | --dump DIR)";
    Command command;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--filter" && i + 1 < argc) {
            command.filter = argv[++i];
        } else if ((arg == "--check" || arg == "--write" || arg == "--dump") && i + 1 < argc) {
            command.mode = arg.substr(2);
            command.path = argv[++i];
        } else if (arg == "--print") {
            command.mode = "print";
        } else {
            throw std::invalid_argument(usage);
        }
    }
    if (command.mode.empty()) throw std::invalid_argument(usage);
    if (command.mode == "write" && !command.filter.empty())
        throw std::invalid_argument("--write rewrites the whole list; it takes no --filter");
    return command;
}

// Every case, with the skipped ones (and why) set aside. Names are the keys
// of the list: unique, non-empty, no white space or '#'.
Cases all_cases(std::map<std::string, std::string>& skipped) {
    Cases run;
    for (Case& c :
         Cases{facade_cases(), pixel_cases(), blur_cases(), styles_cases(), frame_cases()}) {
        if (c.name.empty() || c.name.find_first_of(" \t\n#") != std::string::npos ||
            std::any_of(run.begin(), run.end(), [&](const Case& o) { return o.name == c.name; }) ||
            skipped.count(c.name))
            throw std::invalid_argument("bad or repeated golden case name '" + c.name + "'");
        if (kExclusions.count(c.name)) {
            skipped[c.name] = kExclusions.at(c.name);
#if !defined(__GLIBC__)
        } else if (c.needs == Needs::rand) {
            skipped[c.name] = "depends on the rand() sequence; the digests are glibc's";
#endif
        } else {
            run.push_back(std::move(c));
        }
    }
    return run;
}

double seconds_since(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

DigestList run_cases(const Cases& cases, const Command& command) {
    DigestList digests;
    const auto all_start = std::chrono::steady_clock::now();
    for (const Case& c : cases) {
        if (!command.selected(c.name)) continue;
        Bytes raw;
        Recorder out(command.mode == "dump" ? &raw : nullptr);
        std::srand(kCaseSeed);
        const auto start = std::chrono::steady_clock::now();
        c.run(out);
        if (seconds_since(start) > kSlowCaseSeconds)
            std::cout << "slow case " << c.name << ": " << seconds_since(start) << " s\n";
        digests[c.name] = out.hex_digest();
        if (command.mode == "dump") {
            std::ofstream file(command.path + "/" + c.name + ".bin", std::ios::binary);
            file.write(reinterpret_cast<const char*>(raw.data()), std::streamsize(raw.size()));
            if (!file) throw std::runtime_error("cannot write into " + command.path);
        }
    }
    std::cout << digests.size() << " golden cases run in " << seconds_since(all_start) << " s\n";
    return digests;
}

int check(const DigestList& computed, const Command& command,
          const std::map<std::string, std::string>& skipped) {
    std::ifstream file(command.path);
    if (!file) throw std::runtime_error("cannot read " + command.path);
    DigestList listed;
    for (const auto& [name, digest] : parse_digest_list(file))
        if (command.selected(name)) listed.emplace(name, digest);
    std::set<std::string> skipped_names;
    for (const auto& skip : skipped) skipped_names.insert(skip.first);

    const auto problems = compare_digests(listed, computed, skipped_names);
    for (const std::string& problem : problems) std::cout << problem << '\n';
    if (problems.empty()) {
        std::cout << computed.size() << " golden digests match " << command.path << '\n';
        return 0;
    }
    std::cout << problems.size() << " of " << computed.size() << " golden digests differ from "
              << command.path
              << ".\nIf the change is intended, regenerate the list "
                 "(cmake --build <build-dir> --target update-golden) and review the diff.\n";
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Command command = parse_command(argc, argv);
        if (std::time(nullptr) != kFixedClock)
            throw std::runtime_error("time() is not the fixed clock: link with -Wl,--wrap=time");
        std::map<std::string, std::string> skipped;
        const Cases cases = all_cases(skipped);
        for (const auto& [name, reason] : skipped)
            std::cout << "skipped " << name << ": " << reason << '\n';

        const DigestList computed = run_cases(cases, command);
        if (command.mode == "check") return check(computed, command, skipped);
        if (command.mode == "write") {
            std::ofstream file(command.path);
            write_digest_list(file, computed);
            if (!file) throw std::runtime_error("cannot write " + command.path);
            std::cout << "wrote " << computed.size() << " digests to " << command.path << '\n';
        }
        if (command.mode == "print") write_digest_list(std::cout, computed);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "qtzq_golden: " << error.what() << '\n';
        return 2;
    }
}
