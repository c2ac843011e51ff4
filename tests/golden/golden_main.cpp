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
#include <fstream>
#include <iostream>
#include <set>
#include <stdexcept>
#include <string>

#include "all_cases.h"
#include "digest_list.h"
#include "fixed_clock.h"
#include "runner.h"

using namespace qtzq_golden;

namespace {

struct Command {
    std::string mode;  // check, write, print, dump
    std::string path;  // list file or dump folder
    RunOptions options;
};

const char kUsage[] =
    "usage: qtzq_golden [--filter TEXT] (--check LIST | --write LIST | --print | --dump DIR)\n";

Command parse_command(int argc, char** argv) {
    Command command;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool has_value = i + 1 < argc;
        if (arg == "--filter" && has_value) {
            command.options.filter = argv[++i];
        } else if ((arg == "--check" || arg == "--write" || arg == "--dump") && has_value) {
            command.mode = arg.substr(2);
            command.path = argv[++i];
        } else if (arg == "--print") {
            command.mode = "print";
        } else {
            throw std::invalid_argument(kUsage);
        }
    }
    if (command.mode.empty()) throw std::invalid_argument(kUsage);
    if (command.mode == "write" && !command.options.filter.empty())
        throw std::invalid_argument("--write rewrites the whole list; it takes no --filter\n");
    if (command.mode == "dump") command.options.dump_dir = command.path;
    return command;
}

DigestList read_list(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path);
    return parse_digest_list(file);
}

int check(const CaseList& list, const DigestList& computed, const Command& command) {
    DigestList listed;
    for (const auto& [name, digest] : read_list(command.path)) {
        if (selected(name, command.options)) listed.emplace(name, digest);
    }
    std::set<std::string> skipped;
    for (const Exclusion& skip : list.skipped()) skipped.insert(skip.name);

    const auto problems = compare_digests(listed, computed, skipped);
    for (const std::string& problem : problems) std::cout << problem << '\n';
    if (!problems.empty()) {
        std::cout << problems.size() << " of " << computed.size() << " golden digests differ from "
                  << command.path
                  << ".\n"
                     "If the change is intended, regenerate the list "
                     "(cmake --build <build-dir> --target update-golden) and review the diff.\n";
        return 1;
    }
    std::cout << computed.size() << " golden digests match " << command.path << '\n';
    return 0;
}

int write(const DigestList& computed, const std::string& path) {
    std::ofstream file(path);
    write_digest_list(file, computed);
    if (!file) throw std::runtime_error("cannot write " + path);
    std::cout << "wrote " << computed.size() << " digests to " << path << '\n';
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Command command = parse_command(argc, argv);
        if (!clock_is_fixed())
            throw std::runtime_error("time() is not the fixed clock: link with -Wl,--wrap=time");

        CaseList list;
        add_all_cases(list);
        for (const Exclusion& skip : list.skipped())
            std::cout << "skipped " << skip.name << ": " << skip.reason << '\n';

        const DigestList computed = run_cases(list, command.options, std::cout);
        if (command.mode == "check") return check(list, computed, command);
        if (command.mode == "write") return write(computed, command.path);
        if (command.mode == "print") write_digest_list(std::cout, computed);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "qtzq_golden: " << error.what();
        if (error.what()[0] && std::string(error.what()).back() != '\n') std::cerr << '\n';
        return 2;
    }
}
